#include "compare/ObjectDiff.h"

#include "compare/FrameDiff.h"
#include "compare/ItemPairs.h"
#include "object/Attributes.h"

#include <algorithm>

using namespace Varnotix;

namespace
{

/// The elements of one data set in the order of their tags.
using CElements = std::vector<const CDcmElement*>;

CElements Sorted(CElements elements)
{
    std::stable_sort(elements.begin(), elements.end(),
                     [](const CDcmElement* a, const CDcmElement* b) { return a->Tag() < b->Tag(); });
    return elements;
}

/// One data set for the object itself.
std::vector<CElements> DataSetsOf(const CDcmElementSet& set, bool hasItems)
{
    const int count = hasItems ? set.ItemCount() : 1;
    std::vector<CElements> dataSets(static_cast<std::size_t>(count));
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement* element = set.GetAt(i);
        const int item = hasItems ? std::clamp(element->Item(), 1, count) : 1;
        dataSets[static_cast<std::size_t>(item) - 1].push_back(element);
    }
    std::transform(dataSets.begin(), dataSets.end(), dataSets.begin(), &Sorted);
    return dataSets;
}

/// A data set, and where it is.
struct SSide
{
    const CDcmElementSet* set;
    int item;
    const CElements* elements;
    std::shared_ptr<const CCharacterSet> characters;

    SSide(const CDcmElementSet& around, int number, const CElements& own,
          const std::shared_ptr<const CCharacterSet>& outer)
        : set(&around), item(number), elements(&own)
    {
        constexpr DWORD kSpecificCharacterSet = 0x00080005;
        const bool hasOwn = FindInSet(around, number, kSpecificCharacterSet) != nullptr;
        characters = hasOwn ? std::make_shared<const CCharacterSet>(CCharacterSet::Of(around, number, *outer)) : outer;
    }

    int FrameCount() const
    {
        const CDcmElement* count = FindInSet(*set, item, Tag::kNumberOfFrames);
        return count != nullptr ? WholeNumber(count->JoinedText()).value_or(1) : 1;
    }
};

/// The value without what makes its length even.
std::string_view WithoutPadding(std::string_view bytes, const CDcmElement& element)
{
    const bool isText = VrKind(element.Vr()) == EVrKind::Text;
    return isText ? bytes.substr(0, bytes.find_last_not_of(std::string_view("\0 ", 2)) + 1) : bytes;
}

bool HasSameValue(const CDcmElement& left, const CDcmElement& right)
{
    const CValueBytes leftBytes = left.ValueBytes();
    const CValueBytes rightBytes = right.ValueBytes();
    const std::string_view a = WithoutPadding(leftBytes.View(), left);
    const std::string_view b = WithoutPadding(rightBytes.View(), right);
    const bool isPadded = a.size() != b.size() && (a.size() + 1) / 2 == (b.size() + 1) / 2;
    return a == b || (isPadded && (a.size() < b.size() ? b.substr(0, a.size()) == a && b.back() == '\0'
                                                       : a.substr(0, b.size()) == b && a.back() == '\0'));
}

class CComparison
{
public:
    CComparison(const CIgnored& ignored, EAlignment alignment, bool vrsCount)
        : m_ignored(ignored), m_alignment(alignment), m_vrsCount(vrsCount)
    {
    }

    std::vector<SDifference> found;

    void Compare(const SSide& left, const SSide& right);

private:
    void CompareElements(const CDcmElement& a, const CDcmElement& b, const SSide& left, const SSide& right);
    void CompareItems(const CDcmElement& a, const CDcmElement& b, const SSide& left, const SSide& right);
    bool AreEqual(const SSide& left, const SSide& right);
    bool Begin(DWORD tag, const SSide& side);
    void Add(SDifference::EKind kind, const CDcmElement* a, const CDcmElement* b, const SSide& left, const SSide& right,
             const CString& note = CString());
    bool IsDone() const { return m_isProbe && !found.empty(); }

    const CIgnored& m_ignored;
    EAlignment m_alignment;
    bool m_vrsCount;
    bool m_isProbe = false; // One difference is enough.
    CElementPath m_path;
    CString m_creator;
};

/// Enters an element.
/// @return false for one that does not count.
bool CComparison::Begin(DWORD tag, const SSide& side)
{
    m_creator = PrivateCreatorOf(*side.set, side.item, tag);
    m_path.Append({tag, CString(), SPathStep::kNoItem});
    return !Tag::IsGroupLength(tag) && !m_ignored.Has(m_path, m_creator);
}

void CComparison::Add(SDifference::EKind kind, const CDcmElement* a, const CDcmElement* b, const SSide& left,
                      const SSide& right, const CString& note)
{
    found.push_back({kind, m_path, a, b, left.characters, right.characters, m_creator, note});
}

void CComparison::Compare(const SSide& left, const SSide& right)
{
    auto a = left.elements->begin();
    auto b = right.elements->begin();
    while ((a != left.elements->end() || b != right.elements->end()) && !IsDone())
    {
        const bool hasLeft = a != left.elements->end();
        const bool hasRight = b != right.elements->end();
        if (hasLeft && (!hasRight || (*a)->Tag() < (*b)->Tag()))
        {
            if (Begin((*a)->Tag(), left))
            {
                Add(SDifference::EKind::OnlyLeft, *a, nullptr, left, right);
            }
            ++a;
        }
        else if (!hasLeft || (*b)->Tag() < (*a)->Tag())
        {
            if (Begin((*b)->Tag(), right))
            {
                Add(SDifference::EKind::OnlyRight, nullptr, *b, left, right);
            }
            ++b;
        }
        else
        {
            if (Begin((*a)->Tag(), left))
            {
                CompareElements(**a, **b, left, right);
            }
            ++a;
            ++b;
        }
        m_path.RemoveLast();
    }
}

void CComparison::CompareElements(const CDcmElement& a, const CDcmElement& b, const SSide& left, const SSide& right)
{
    if (a.Items() != nullptr && b.Items() != nullptr)
    {
        CompareItems(a, b, left, right);
        return;
    }
    if (a.Frames() != nullptr && b.Frames() != nullptr)
    {
        const CString note = CompareFrames(*a.Frames(), left.FrameCount(), *b.Frames(), right.FrameCount());
        const bool hasOtherVr = m_vrsCount && std::string_view(a.VrLetters()) != b.VrLetters();
        if (!note.IsEmpty() || hasOtherVr)
        {
            Add(note.IsEmpty() ? SDifference::EKind::Vr : SDifference::EKind::Frames, &a, &b, left, right, note);
        }
        return;
    }
    const bool isSame = a.Items() == nullptr && b.Items() == nullptr && HasSameValue(a, b);
    if (std::string_view(a.VrLetters()) != b.VrLetters() && (m_vrsCount || !isSame))
    {
        Add(SDifference::EKind::Vr, &a, &b, left, right);
    }
    else if (!isSame)
    {
        Add(SDifference::EKind::Value, &a, &b, left, right);
    }
}

void CComparison::CompareItems(const CDcmElement& a, const CDcmElement& b, const SSide& left, const SSide& right)
{
    const std::vector<CElements> leftItems = DataSetsOf(*a.Items(), true);
    const std::vector<CElements> rightItems = DataSetsOf(*b.Items(), true);
    const auto leftSide = [&](std::size_t i)
    { return SSide(*a.Items(), static_cast<int>(i) + 1, leftItems[i], left.characters); };
    const auto rightSide = [&](std::size_t i)
    { return SSide(*b.Items(), static_cast<int>(i) + 1, rightItems[i], right.characters); };
    const auto areEqual = [&](std::size_t i, std::size_t j) { return AreEqual(leftSide(i), rightSide(j)); };
    const std::vector<SItemPair> pairs = m_alignment == EAlignment::Best
                                             ? PairByContent(leftItems.size(), rightItems.size(), areEqual)
                                             : PairByNumber(leftItems.size(), rightItems.size());
    const CString creator = m_creator;
    for (const SItemPair& pair : pairs)
    {
        m_creator = creator; // What is in items has its own.
        const bool hasLeft = pair.left != SItemPair::kNone;
        const bool hasRight = pair.right != SItemPair::kNone;
        m_path.SelectItem(static_cast<int>(hasLeft ? pair.left : pair.right) + 1);
        if (m_ignored.Has(m_path, m_creator))
        {
            continue;
        }
        if (hasLeft && hasRight)
        {
            Compare(leftSide(pair.left), rightSide(pair.right));
        }
        else if (hasLeft)
        {
            Add(SDifference::EKind::OnlyLeft, &a, nullptr, leftSide(pair.left), right);
        }
        else
        {
            Add(SDifference::EKind::OnlyRight, nullptr, &b, left, rightSide(pair.right));
        }
        if (IsDone())
        {
            return;
        }
    }
}

bool CComparison::AreEqual(const SSide& left, const SSide& right)
{
    CComparison probe(m_ignored, EAlignment::ByIndex, m_vrsCount);
    probe.m_isProbe = true;
    probe.m_path = m_path;
    probe.m_path.SelectItem(left.item);
    probe.Compare(left, right);
    return probe.found.empty();
}

} // namespace

std::vector<SDifference> CompareObjects(const CDcmIOD& left, const CDcmIOD& right, const CIgnored& ignored,
                                        EAlignment alignment, bool vrsCount)
{
    const std::vector<CElements> leftSets = DataSetsOf(left.ElementStore(), false);
    const std::vector<CElements> rightSets = DataSetsOf(right.ElementStore(), false);
    const auto ascii = std::make_shared<const CCharacterSet>();
    CComparison comparison(ignored, alignment, vrsCount);
    comparison.Compare(SSide(left.ElementStore(), 0, leftSets.front(), ascii),
                       SSide(right.ElementStore(), 0, rightSets.front(), ascii));
    return std::move(comparison.found);
}
