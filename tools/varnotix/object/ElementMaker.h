/// New elements by tag and VR.
#pragma once

#include "Varnotix/Varnotix.h"

#include <memory>
#include <string_view>

/// A new element without a value.
/// @param vr two letters; the element has VR UN for others.
std::unique_ptr<CDcmElement> MakeElement(DWORD tag, std::string_view vr);

/// As above, with a value.
/// @param bytes as little endian has it.
std::unique_ptr<CDcmElement> MakeElement(DWORD tag, std::string_view vr, std::string_view bytes);

/// The VR letters that PS3.6 gives a tag; private creators have LO.
/// @param isSigned decides where the dictionary leaves the choice between US and SS.
/// @return empty for other tags that the dictionary file does not list.
CString ListedVr(DWORD tag, bool isSigned);

/// The code of the VR that holds the values of a VR; VR_UNKNOWN for letters that are not one.
int CarrierCode(std::string_view letters);

/// True for the letters of a VR.
bool IsVr(std::string_view letters);
