/// Generic objects as the objects that their SOP class names.
#pragma once

#include "Varnotix/Varnotix.h"

#include <memory>

/// An object of the class that fits the SOP Class UID (0008,0016): CT, MR, CR, nuclear medicine, ultrasound, secondary
/// capture, patient information; any other is a composite object without modules. It holds copies of the elements, and
/// its modules show them. It does not take the path of the input.
std::unique_ptr<CDcmIOD> MakeTypedObject(const CDcmIOD& object);
