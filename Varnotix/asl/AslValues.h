/// Stores the value list of a script's element line in an element.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/element/DcmElement.h"

#include <string_view>

namespace Varnotix
{

/// Converts the texts between the brackets by the element's VR and stores them. A single value is added or replaces the
/// old one as the multiplicity allows; several values replace the old ones whatever the multiplicity; an empty list
/// changes nothing. A malformed number counts as 0. Values of OW, UN, SQ and Pixel Data are not imported.
/// @param line the line's index for the notes.
void StoreAslValues(CDcmElement& element, std::string_view values, CScriptNotes& notes, int line);

} // namespace Varnotix
