/// Entities of the objects whose modules are listed.
#pragma once

#include "Varnotix/Varnotix.h"

/// The name of the entity that begins with this module; empty when it stands behind another of its entity. The modules
/// of an entity are registered one behind the other.
CString EntityStarting(const CDcmModule& module);
