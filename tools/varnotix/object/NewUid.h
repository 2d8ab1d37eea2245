/// Unique identifiers.
#pragma once

#include "Varnotix/Varnotix.h"

/// A UID made of a random UUID (PS3.5 Annex B.2).
CString NewUid();
