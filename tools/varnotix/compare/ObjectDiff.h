/// What differs between two objects.
#pragma once

#include "compare/Ignored.h"
#include "text/CharacterSet.h"

#include <memory>

/// One difference.
struct SDifference
{
    enum class EKind
    {
        OnlyLeft,  ///< An element, or an item, that the right object lacks.
        OnlyRight, ///< One that the left object lacks.
        Vr,        ///< The VRs differ, and perhaps the values.
        Value,
        Frames ///< Pixel Data differs.
    };

    EKind kind;
    /// Whole tags and numbers of items, as in the left object; of what only the right one has, as there. It ends in an
    /// item where that is what only one has.
    Varnotix::CElementPath path;
    const CDcmElement* left = nullptr;  ///< The element, or the sequence of the item; null when there is none.
    const CDcmElement* right = nullptr; ///< As left.
    /// Of the data sets that have the elements.
    std::shared_ptr<const CCharacterSet> leftCharacters = {};
    std::shared_ptr<const CCharacterSet> rightCharacters = {};
    CString creator = {}; ///< Of a private element.
    CString note = {};    ///< What differs in pixel data.
};

/// How items of two sequences are compared.
enum class EAlignment
{
    Best,   ///< Equal items are taken together, in order; those between two equal ones by their number there.
    ByIndex ///< Items of the same number.
};

/// The differences in the order of the tags; they point into the objects. Group lengths, padding and the form in which
/// lengths are given are no differences.
/// @param vrsCount whether different VRs of equal values are; they are not where one object is in implicit VR.
std::vector<SDifference> CompareObjects(const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored,
                                        EAlignment alignment, bool vrsCount);
