/// Finds the transfer syntax of a data set from its first elements, and the form of a header without a VR.
#pragma once

#include "Varnotix/platform/Types.h"

#include <cstddef>

namespace Varnotix
{

/// How many elements from the beginning make sense in a syntax (see ESyntax): a VR or a tag that the standard has,
/// ascending tags, lengths inside the data set. At most 16 are examined.
/// @return 0 where not even the first one does.
int ElementsThatFit(const BYTE* data, std::size_t size, int syntax);

/// True when the first two elements make sense in the syntax and are evidence for it, whatever other syntaxes fit.
bool ClearlyFits(const BYTE* data, std::size_t size, int syntax);

/// The syntax that fits the first elements best; tags of the standard count most. SYNTAX_UNKNOWN when none fits.
int ProbeSyntax(const BYTE* data, std::size_t size);

/// The forms of an element's header (PS3.5 section 7.1).
enum class EHeaderForm
{
    Implicit, ///< Tag, 32-bit length.
    Short,    ///< Tag, VR, 16-bit length.
    Long      ///< Tag, VR, two reserved bytes, 32-bit length.
};

/// The form of a header in an explicit syntax that has no letters where the VR belongs. Implicit, unless only a longer
/// one leads to the next element: some writers put "??" or zero bytes into the place of a VR that they do not know.
/// @param size of what is left from the header on, at least 8.
EHeaderForm HeaderFormWithoutVr(const BYTE* data, std::size_t size, int syntax);

} // namespace Varnotix
