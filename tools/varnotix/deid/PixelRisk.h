/// Objects whose pixels, documents or sounds may show who the patient is.
#pragma once

#include "console/Report.h"

/// Why the object must not be given away before a person has looked at it; empty when nothing in it says so.
CString PixelRiskOf(const CDcmElementSet& store);

/// True for a class of encapsulated documents.
bool IsDocumentClass(const CString& sopClass);
