/// Walking over all elements of an object, at every depth.
#pragma once

#include "Varnotix/element/ElementPath.h"

#include <functional>

namespace Varnotix
{

/// What a walk does after a visit.
enum class EWalk
{
    Enter,  ///< Goes on, for a sequence with the elements of its items.
    Skip,   ///< Goes on after the element and its items.
    Remove, ///< Removes and destroys the element and its items, and goes on.
    Stop    ///< Ends the walk.
};

/// A place that a walk has reached.
struct VARNOTIX_EXPORT SWalkPlace
{
    CDcmElement& element;
    CDcmElementSet& set;      ///< The set that holds the element.
    int item;                 ///< The item of the set that has the element; 0 in the object's set.
    const CElementPath& path; ///< Whole tags and numbers of items; valid during the visit.
};

/// Visits each element of a set, then, after a sequence, the elements of its items, in list order.
///
/// A visit may change the value of the element that it is given. It must not add or remove elements of that set, nor
/// of those around it; EWalk::Remove is the way to remove the element. A sequence's items may be changed during its
/// own visit. Exceptions of a visit end the walk and pass through; elements marked for removal before then stay.
/// @return false when a visit ended the walk.
VARNOTIX_EXPORT bool WalkElements(CDcmElementSet& set, const std::function<EWalk(const SWalkPlace&)>& visit);

} // namespace Varnotix
