/// Writes element sets as lines of the Attribute Script Language (ASL), the text form of a data set.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

namespace Varnotix
{

/// The line of one element: group,element,VR,multiplicity,name,[values]. Each value is followed by a comma; nothing is
/// escaped. Texts are taken up to their first zero byte. The line is empty for an element that the dictionary does not
/// know.
VARNOTIX_EXPORT CString AslElementLine(const CDcmElement& element);

/// The line of an element in one of two forms. The standard one prints SS as signed and UL as unsigned numbers, and the
/// element's own VR where that is a later one than the VR codes name (CDcmElement::LaterVr) and the dictionary gives
/// the tag this VR. Readers take both forms.
VARNOTIX_EXPORT CString AslElementLine(const CDcmElement& element, bool isStandard);

/// Appends the line of each element in list order. The elements of a sequence follow it between "#SEQUENCE_BEGIN" and
/// "#SEQUENCE_END", indented by three blanks per level. In a set that keeps its items (CDcmElementSet::KeepsItems) the
/// lines of each item follow a mark, "#ITEM=1", when there are several items or an empty one.
/// @param isStandard chooses the form of the lines, as in AslElementLine.
VARNOTIX_EXPORT void AslLines(const CDcmElementSet& set, CStringArray& lines, bool isStandard = false);

/// Creates or truncates a file and writes the lines, each followed by a line feed. A file that cannot be created or
/// written is not reported; it may be missing or cut short.
VARNOTIX_EXPORT void WriteAslFile(const CString& path, const CStringArray& lines);

} // namespace Varnotix
