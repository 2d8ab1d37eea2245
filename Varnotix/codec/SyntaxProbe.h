/// Finds the transfer syntax of a data set from its first elements.
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

} // namespace Varnotix
