/// The value list of a script's element line, brought into an element.
#pragma once

#include "Varnotix/asl/ScriptNote.h"
#include "Varnotix/element/DcmElement.h"

#include <string_view>

/// Converts the texts between the brackets by the element's VR and stores them. One value is stored as a single value,
/// under the rule of the multiplicity; several replace the element's values whatever the multiplicity is; none change
/// nothing. A number of wrong form counts as 0. Values of OW, UN, SQ and Pixel Data are not taken.
/// @param line the line's index for the notes.
void StoreAslValues(CDcmElement& element, std::string_view values, CScriptNotes& notes, int line);
