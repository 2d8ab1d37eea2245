/// Differences as lines for people.
#pragma once

#include "compare/ObjectDiff.h"

#include <string>

/// The lines of one difference: its path with tag and VR, then the left value after "-" and the right one after "+".
/// Values are UTF-8, without control characters, and cut when they are long.
/// @param isColoured with the codes of a terminal: red and green.
std::string DifferenceText(const SDifference& difference, bool isColoured);

/// A path of whole tags in a form that gives the same path again: repeating groups share their keywords.
CString PathText(const Varnotix::CElementPath& path);

/// True when standard output is a terminal that shows colours and the user has not set NO_COLOR.
bool UsesColour();
