/// Paths: which element of an object is meant, at any depth.
#pragma once

#include "Varnotix/element/DcmElementSet.h"

#include <optional>
#include <string_view>
#include <vector>

namespace Varnotix
{

/// One step of a path: an element, and which of its items the next step enters.
struct VARNOTIX_EXPORT SPathStep
{
    static constexpr int kNoItem = 0;     ///< The element itself.
    static constexpr int kEveryItem = -1; ///< Written "[]".
    static constexpr int kNewItem = -2;   ///< Written "[+]": an item after the last one. It is never found.

    /// With a creator only the group and the low byte of the element number count.
    DWORD tag = 0;
    /// The private creator whose block has the element; empty for a step that gives the whole tag.
    CString creator;
    /// Number of the item, counted from 1, or one of the constants above.
    int item = kNoItem;
};

struct SFoundElement;

/// A path from an object to one of its elements, to one of its items, or to several.
///
/// A path is written as steps with dots between them, outermost first: "PatientName", "0010,0010", "(0010,0010)" or
/// "00100010" for an element; "RequestAttributesSequence[2].ScheduledProcedureStepID" for one in an item. Items are
/// counted from 1; "[]" means every item and "[+]" a new one. A sequence without brackets before another step means its
/// first item. A private element may be given by its private creator, "(0009,"ACME",01)", whatever block that has in
/// the object; a quotation mark in the creator is written twice. Blanks around a step do not count.
class VARNOTIX_EXPORT CElementPath
{
public:
    CElementPath() = default;
    /// A path of one step.
    explicit CElementPath(DWORD tag) { Append({tag, CString(), SPathStep::kNoItem}); }

    /// Reads a path.
    /// @return nothing for a text that is not one, such as one with a keyword that the dictionary lacks.
    static std::optional<CElementPath> Parse(std::string_view text);

    /// The path as Parse reads it, with keywords where the dictionary file has them and numbers for other tags.
    CString Text() const;

    bool IsEmpty() const { return m_steps.empty(); }
    /// The steps, outermost first.
    const std::vector<SPathStep>& Steps() const { return m_steps; }
    void Append(SPathStep step) { m_steps.push_back(std::move(step)); }
    /// Removes the last step; the path must not be empty.
    void RemoveLast() { m_steps.pop_back(); }
    /// Sets the item of the last step; the path must not be empty.
    void SelectItem(int item) { m_steps.back().item = item; }

    /// The first element that the path names in the set, or null. For a path that ends in an item: the sequence, if it
    /// has the item.
    CDcmElement* Find(CDcmElementSet& set) const;
    const CDcmElement* Find(const CDcmElementSet& set) const { return Find(const_cast<CDcmElementSet&>(set)); }

    /// All elements that the path names in the set, in the order of the items.
    std::vector<SFoundElement> FindAll(CDcmElementSet& set) const;

private:
    std::vector<SPathStep> m_steps;
};

/// An element and where it is.
struct VARNOTIX_EXPORT SFoundElement
{
    CDcmElement* element; ///< Owned by its set.
    CDcmElementSet* set;  ///< The object's set, or that of the innermost sequence around the element.
    int item;             ///< The item of the set that has the element; 0 in the object's set.
    CElementPath path;    ///< Whole tags and numbers of items only, but for the item of the last step.
};

} // namespace Varnotix
