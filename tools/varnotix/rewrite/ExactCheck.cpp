#include "rewrite/ExactCheck.h"

#include "rewrite/SameValue.h"

#include <string_view>

namespace Tag = Varnotix::Tag;

namespace
{

constexpr std::size_t kLongestShortValue = 0xFFFE; // The longest even length of 16 bits.

/// The fragments, or whatever the frames are divided into.
std::vector<std::string_view> PiecesOf(const CDcmFrameList& frames)
{
    std::vector<std::string_view> pieces;
    for (int i = 0; i < frames.GetCount(); ++i)
    {
        const CDcmFrame& frame = *frames.GetFrame(i);
        std::size_t offset = 0;
        for (const DWORD size : frame.FragmentSizes())
        {
            pieces.emplace_back(reinterpret_cast<const char*>(frame.Data()) + offset, size);
            offset += size;
        }
    }
    return pieces;
}

class CExactComparison
{
public:
    explicit CExactComparison(CLossReport& losses) : m_losses(losses) {}

    void CompareLevels(const std::vector<SSnapshot>& before, const std::vector<SSnapshot>& after, const CString& path,
                       bool isImplicit);
    const CString& Fault() const { return m_fault; }

private:
    void CompareElements(const SSnapshot& before, const SSnapshot& after, const CString& path, bool isImplicit);
    bool CompareVr(const SSnapshot& before, const SSnapshot& after, const CString& place, bool isImplicit);
    void CompareValues(const SSnapshot& before, const SSnapshot& after, const CString& place);
    void CompareFrames(const CDcmFrameList& before, const CDcmFrameList& after, const CString& place);
    void SetFault(const CString& fault)
    {
        if (m_fault.IsEmpty())
        {
            m_fault = fault;
        }
    }

    CLossReport& m_losses;
    CString m_fault;
};

void CExactComparison::CompareLevels(const std::vector<SSnapshot>& before, const std::vector<SSnapshot>& after,
                                     const CString& path, bool isImplicit)
{
    std::size_t i = 0;
    for (const SSnapshot& written : after)
    {
        if (i < before.size() && before[i].Place() == written.Place())
        {
            CompareElements(before[i++], written, path, isImplicit);
        }
        else if (written.tag != Tag::kFileMetaInformationGroupLength) // Every file has it.
        {
            SetFault(path + TagAndName(written.tag) + " is written where the input has another element");
            return;
        }
    }
    if (i < before.size())
    {
        SetFault(path + TagAndName(before[i].tag) + " is not written");
    }
}

void CExactComparison::CompareElements(const SSnapshot& before, const SSnapshot& after, const CString& path,
                                       bool isImplicit)
{
    const CString place = path + TagAndName(before.tag);
    if (before.IsGroupLength() && std::string_view(before.letters) != after.letters)
    {
        m_losses.Add(ELoss::GroupLengthRemade, place, CString("remade, with VR ") + after.letters);
        return;
    }
    const bool isStated = !isImplicit || (path.IsEmpty() && Tag::Group(before.tag) == Tag::kMetaGroup);
    if (!CompareVr(before, after, place, !isStated))
    {
        return;
    }
    if (before.itemCount != after.itemCount)
    {
        SetFault(place + ": the number of its items does not read back");
        return;
    }
    CompareValues(before, after, place);
    // The items of a sequence of VR UN are in implicit VR whatever the syntax is (PS3.5 section 6.2.2).
    const bool isUnknown = std::string_view(before.letters) == "UN";
    CompareLevels(before.items, after.items, path + TagName(before.tag) + ">", isImplicit || isUnknown);
}

/// @return whether the values can be compared.
bool CExactComparison::CompareVr(const SSnapshot& before, const SSnapshot& after, const CString& place, bool isImplicit)
{
    if (std::string_view(before.letters) == after.letters)
    {
        return true;
    }
    if (isImplicit)
    {
        m_losses.Add(ELoss::VrNotStated, place, CString("VR ") + before.letters + " is not stated in implicit VR");
        // The bytes of a sequence that was unknown before are read as its items.
        return before.items.empty() == after.items.empty() && (before.frames == nullptr) == (after.frames == nullptr);
    }
    if (after.vr == VR_UN && before.raw.Size() > kLongestShortValue)
    {
        m_losses.Add(ELoss::VrChanged, place,
                     CString("VR ") + before.letters + " is written as UN, " +
                         Sizes("because %llu bytes are too long for it", before.raw.Size()));
        return true;
    }
    SetFault(place + ": VR " + before.letters + " reads back as " + after.letters);
    return true;
}

void CExactComparison::CompareValues(const SSnapshot& before, const SSnapshot& after, const CString& place)
{
    if (before.frames != nullptr && after.frames != nullptr)
    {
        CompareFrames(*before.frames, *after.frames, place);
    }
    else if (before.IsGroupLength())
    {
        // That of the file meta information follows from its elements; the read reports one that is wrong.
        const bool isMeta = before.tag == Varnotix::Tag::kFileMetaInformationGroupLength;
        if (!isMeta && !before.raw.SameBytes(after.raw))
        {
            m_losses.Add(ELoss::GroupLengthRemade, place, "remade");
        }
    }
    else if (!SameButPadding(before.raw.Text(), after.raw.Text()))
    {
        SetFault(place + ": its value does not read back");
    }
}

void CExactComparison::CompareFrames(const CDcmFrameList& before, const CDcmFrameList& after, const CString& place)
{
    const std::vector<std::string_view> pieces = PiecesOf(before);
    const std::vector<std::string_view> written = PiecesOf(after);
    bool isSame = pieces.size() == written.size();
    for (std::size_t i = 0; isSame && i < pieces.size(); ++i)
    {
        isSame = SameButPadding(pieces[i], written[i]);
    }
    if (!isSame && !SameFrameBytes(before, after))
    {
        SetFault(place + ": the bytes of its frames do not read back");
    }
    if (before.ReadForm() == CDcmFrameList::FORM_ENCAPSULATED && !(before.OffsetTable() == after.OffsetTable()))
    {
        const auto sizeOf = [](const CDcmFrameList& list)
        { return static_cast<std::size_t>(list.OffsetTable().GetSize()); };
        m_losses.Add(
            ELoss::OffsetTableChanged, place,
            sizeOf(before) == sizeOf(after)
                ? CString("its offset table did not fit its fragments, and is computed again")
                : Sizes("offset table of %llu bytes is written as one of %llu", sizeOf(before), sizeOf(after)));
    }
}

} // namespace

CString CheckExactRewrite(const std::vector<SSnapshot>& before, const std::vector<SSnapshot>& after, int syntax,
                          CLossReport& losses)
{
    CExactComparison comparison(losses);
    comparison.CompareLevels(before, after, CString(), syntax == SYNTAX_IMPLICIT_LITTLE);
    return comparison.Fault();
}
