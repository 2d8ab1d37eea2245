#include "rewrite/RewriteCheck.h"

#include "rewrite/SameValue.h"

#include <iterator>

namespace
{

constexpr DWORD kLongestShortValue = 0xFFFF;

/// The text without empty values between, before and after backslashes.
CSharedBytes WithoutEmptyValues(const CSharedBytes& text)
{
    std::string kept;
    std::string_view rest = text.Text();
    while (!rest.empty())
    {
        const std::size_t end = rest.find('\\');
        const std::string_view value = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (!value.empty())
        {
            kept += kept.empty() ? "" : "\\";
            kept += value;
        }
    }
    return CSharedBytes::Copy(reinterpret_cast<const BYTE*>(kept.data()), kept.size());
}

/// How many elements of the tag at a place follow each other from there on.
std::size_t RunLength(const std::vector<SSnapshot>& level, std::size_t place)
{
    std::size_t end = place;
    while (end < level.size() && level[end].tag == level[place].tag)
    {
        ++end;
    }
    return end - place;
}

class CComparison
{
public:
    CComparison(const SRewrite& rewrite, CLossReport& losses) : m_rewrite(rewrite), m_losses(losses) {}

    void CompareLevels(const std::vector<SSnapshot>& before, std::vector<SSnapshot>& after, const CString& path);
    const CString& Fault() const { return m_fault; }

private:
    static void MoveOutOfEmptySequence(const SSnapshot& before, std::vector<SSnapshot>& after, std::size_t place);
    void NoteMissing(const SSnapshot& before, const CString& place);
    void CompareElements(const SSnapshot& before, SSnapshot& after, const CString& path);
    void CompareVr(const SSnapshot& before, const SSnapshot& after, const CString& place);
    void CompareFrames(const CDcmFrameList& before, const CDcmFrameList& after, const CString& place);
    void CompareValues(const SSnapshot& before, const SSnapshot& after, const CString& place);
    void SetFault(const CString& fault)
    {
        if (m_fault.IsEmpty())
        {
            m_fault = fault;
        }
    }

    const SRewrite& m_rewrite;
    CLossReport& m_losses;
    CString m_fault;
};

/// Re-reading moves the element after an empty sequence into it; undo that.
void CComparison::MoveOutOfEmptySequence(const SSnapshot& before, std::vector<SSnapshot>& after, std::size_t place)
{
    if (before.items.empty() && !after[place].items.empty())
    {
        std::vector<SSnapshot> taken;
        taken.swap(after[place].items);
        after.insert(after.begin() + static_cast<std::ptrdiff_t>(place) + 1, std::make_move_iterator(taken.begin()),
                     std::make_move_iterator(taken.end()));
    }
}

void CComparison::CompareLevels(const std::vector<SSnapshot>& before, std::vector<SSnapshot>& after,
                                const CString& path)
{
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() || j < after.size())
    {
        bool isMissing = j == after.size() || (i < before.size() && before[i].tag < after[j].tag);
        if (!isMissing && i < before.size() && before[i].tag == after[j].tag && before[i].IsGroupLength())
        {
            // Of several group lengths the write removes the first.
            isMissing = RunLength(before, i) > RunLength(after, j);
        }
        const bool isNew = !isMissing && (i == before.size() || after[j].tag < before[i].tag);
        const CString place = path + TagAndName(isNew ? after[j].tag : before[i].tag);
        if (isMissing)
        {
            NoteMissing(before[i++], place);
        }
        else if (isNew)
        {
            // The write adds group lengths.
            if (!after[j].IsGroupLength())
            {
                SetFault(place + " is in the written object, but not in the input");
            }
            ++j;
        }
        else
        {
            MoveOutOfEmptySequence(before[i], after, j);
            CompareElements(before[i++], after[j++], path);
        }
    }
}

void CComparison::NoteMissing(const SSnapshot& before, const CString& place)
{
    if (before.IsGroupLength())
    {
        m_losses.Add(ELoss::GroupLengthRemoved, place, "removed");
    }
    else
    {
        m_losses.Add(ELoss::ElementLost, place, "lost");
    }
}

void CComparison::CompareElements(const SSnapshot& before, SSnapshot& after, const CString& path)
{
    const CString place = path + TagAndName(before.tag);
    CompareVr(before, after, place);
    if (before.frames != nullptr && after.frames != nullptr)
    {
        CompareFrames(*before.frames, *after.frames, place);
        return;
    }
    CompareValues(before, after, place);
    if (m_rewrite.targetSyntax == SYNTAX_EXPLICIT_BIG && !after.items.empty())
    {
        m_losses.Add(ELoss::ItemLengthsSwapped, place,
                     "its item lengths have a byte order that other readers do not expect");
    }
    CompareLevels(before.items, after.items, path + TagName(before.tag) + ">");
}

void CComparison::CompareVr(const SSnapshot& before, const SSnapshot& after, const CString& place)
{
    if (m_rewrite.targetSyntax != SYNTAX_IMPLICIT_LITTLE ||
        Varnotix::Tag::Group(before.tag) == Varnotix::Tag::kMetaGroup)
    {
        if (before.vr != after.vr)
        {
            m_losses.Add(ELoss::VrChanged, place,
                         CString("VR ") + Varnotix::VrText(before.vr) + " is written as " + Varnotix::VrText(after.vr));
        }
        return;
    }
    // Private creators have one VR by the standard; that of other private elements is known from the input only.
    constexpr int kFirstPrivateData = 0x0100;
    if (m_rewrite.sourceSyntax != SYNTAX_IMPLICIT_LITTLE && before.IsPrivate() &&
        Varnotix::Tag::Element(before.tag) >= kFirstPrivateData)
    {
        m_losses.Add(ELoss::VrNotStated, place,
                     CString("VR ") + Varnotix::VrText(before.vr) + " is not stated in implicit VR");
    }
}

void CComparison::CompareFrames(const CDcmFrameList& before, const CDcmFrameList& after, const CString& place)
{
    if (!SameFrameBytes(before, after))
    {
        SetFault(place + ": the bytes of its frames do not read back");
        return;
    }
    if (m_rewrite.compressed && before.GetCount() == 1)
    {
        m_losses.Add(ELoss::FramesNotFramed, place,
                     "its only frame is written without item headers, so other readers may not find it");
    }
    if (!(before.OffsetTable() == after.OffsetTable()) || before.GetCount() != after.GetCount())
    {
        m_losses.Add(ELoss::OffsetTableChanged, place,
                     Sizes("offset table of %llu bytes is written as one of %llu",
                           static_cast<std::size_t>(before.OffsetTable().GetSize()),
                           static_cast<std::size_t>(after.OffsetTable().GetSize())));
    }
}

void CComparison::CompareValues(const SSnapshot& before, const SSnapshot& after, const CString& place)
{
    if (SameButPadding(before.raw.Text(), after.raw.Text()))
    {
        return;
    }
    if (before.IsGroupLength())
    {
        m_losses.Add(ELoss::GroupLengthRemade, place, "remade");
    }
    else if (before.vr == VR_UN)
    {
        m_losses.Add(ELoss::UnValueLost, place, Sizes("value of %llu bytes lost", before.raw.Size()));
    }
    else if (Varnotix::VrKind(before.vr) == EVrKind::Text &&
             SameButPadding(WithoutEmptyValues(before.raw).Text(), after.raw.Text()))
    {
        m_losses.Add(ELoss::EmptyValuesDropped, place, "empty values are dropped");
    }
    else if (after.raw.IsEmpty())
    {
        m_losses.Add(ELoss::ValueChanged, place, Sizes("value of %llu bytes lost", before.raw.Size()));
    }
    else
    {
        m_losses.Add(
            ELoss::ValueChanged, place,
            Sizes("value of %llu bytes is written as another one of %llu", before.raw.Size(), after.raw.Size()));
    }
}

} // namespace

CString CheckRewrite(const std::vector<SSnapshot>& before, std::vector<SSnapshot> after, const SRewrite& rewrite,
                     CLossReport& losses)
{
    CComparison comparison(rewrite, losses);
    comparison.CompareLevels(before, after, CString());
    return comparison.Fault();
}

CString FindTooLongValue(const CDcmElementSet& written)
{
    for (int i = 0; i < written.GetCount(); ++i)
    {
        const CDcmElement& element = *written.GetAt(i);
        const bool isExplicit = element.Syntax() != SYNTAX_IMPLICIT_LITTLE;
        if (isExplicit && !Varnotix::HasLongForm(element.Vr()) && element.EncodedValueSize() > kLongestShortValue)
        {
            return TagAndName(element.Tag()) +
                   Sizes(": a value of %llu bytes is too long for VR ",
                         static_cast<std::size_t>(element.EncodedValueSize())) +
                   element.VrName() + " in an explicit syntax";
        }
        const CString nested = element.Items() != nullptr ? FindTooLongValue(*element.Items()) : CString();
        if (!nested.IsEmpty())
        {
            return TagName(element.Tag()) + ">" + nested;
        }
    }
    return CString();
}
