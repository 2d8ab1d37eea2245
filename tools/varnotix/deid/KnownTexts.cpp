#include "deid/KnownTexts.h"

#include "codestream/Comments.h"
#include "deid/DeidRecord.h"
#include "deid/Values.h"
#include "deid/Words.h"

#include <algorithm>

namespace
{

constexpr std::size_t kShortest = 4;     // Shorter texts are found everywhere.
constexpr std::size_t kShortestName = 3; // In letters of ASCII.
constexpr std::size_t kLongest = 256;    // Longer ones are not repeated word by word.

/// The letters of the VR that the element's value has.
std::string_view LettersOf(const CDcmElement& element)
{
    return {Varnotix::VrLettersOf(VrOf(element)), 2};
}

/// True for texts that are the same in every character set.
bool IsAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\x1B'; });
}

} // namespace

void CKnownTexts::Gather(CDcmElementSet& store, unsigned options)
{
    using Varnotix::EProfileAction;
    CWalkCharacters characters;
    const auto visit = [&](const Varnotix::SWalkPlace& place)
    {
        characters.Reach(place);
        const CDcmElement& element = place.element;
        const EProfileAction action = Varnotix::ProfileAction(element.Tag(), options);
        const bool isListed =
            action != EProfileAction::None && action != EProfileAction::Keep && action != EProfileAction::Clean;
        const bool isDescription =
            Varnotix::ProfileAction(element.Tag(), Varnotix::PROFILE_CLEAN_DESCRIPTORS) == EProfileAction::Clean;
        const int vr = VrOf(element);
        // The names of persons and the UIDs that the table does not list are replaced, too.
        const bool isReplaced = action == EProfileAction::None &&
                                (vr == VR_PN || (vr == VR_UI && (options & Varnotix::PROFILE_RETAIN_UIDS) == 0));
        if ((!isListed && !isReplaced) || isDescription || Varnotix::Tag::IsPrivate(element.Tag()) ||
            element.Items() != nullptr)
        {
            return Varnotix::EWalk::Enter;
        }
        const CValueBytes value = element.ValueBytes();
        if (vr == VR_DA || vr == VR_UI || HoldsWords(element))
        {
            AddParts(value.View(), vr);
            if (!IsAscii(value.View()))
            {
                AddParts(characters.Here().ToUtf8(value.View(), LettersOf(element)).Joined(), vr);
            }
        }
        return Varnotix::EWalk::Enter;
    };
    Varnotix::WalkElements(store, visit);
    std::sort(m_texts.begin(), m_texts.end());
    m_texts.erase(std::unique(m_texts.begin(), m_texts.end()), m_texts.end());
}

std::vector<std::pair<CString, int>> CKnownTexts::FindLeft(CDcmElementSet& store, unsigned options) const
{
    constexpr DWORD kEncapsulatedDocument = 0x00420011;
    CDeidRecord left;
    CWalkCharacters characters;
    const auto visit = [&](const Varnotix::SWalkPlace& place)
    {
        characters.Reach(place);
        const CDcmElement& element = place.element;
        const Varnotix::EProfileAction action = Varnotix::ProfileAction(element.Tag(), options);
        const bool isLeftAsIs = action == Varnotix::EProfileAction::None || action == Varnotix::EProfileAction::Keep;
        const bool isText = HoldsWords(element) || element.HasVr(VR_UN) || element.HasVr(VR_OB);
        const bool stays =
            isLeftAsIs || Varnotix::Tag::IsPrivate(element.Tag()) || element.Tag() == kEncapsulatedDocument;
        const CDcmFrameList* frames = element.Frames();
        const bool isLeft = frames != nullptr
                                ? AreInComments(*frames)
                                : stays && isText && element.Items() == nullptr && AreIn(element, characters);
        if (isLeft)
        {
            left.Add(EDeidDone::Kept, place.path);
        }
        return Varnotix::EWalk::Enter;
    };
    Varnotix::WalkElements(store, visit);
    return left.ListOf(EDeidDone::Kept);
}

void CKnownTexts::Add(std::string_view text, int vr)
{
    text = Varnotix::TrimBlanks(text.substr(0, text.find('\0')));
    const bool isShortName = vr == VR_PN && std::all_of(text.begin(), text.end(), IsLetter);
    std::string folded = FoldCase(text);
    const bool isPublic = vr == VR_UI && CDcmRegistry::Global().UidEnum(CString(text)) >= 0;
    if (text.size() >= (isShortName ? kShortestName : kShortest) && text.size() <= kLongest && !isPublic &&
        folded != FoldCase(kDummyWord))
    {
        m_texts.push_back(std::move(folded));
    }
}

void CKnownTexts::AddParts(std::string_view value, int vr)
{
    const std::string_view separators = vr == VR_PN ? kWordEnds : "\\";
    while (!value.empty())
    {
        const std::size_t end = std::min(value.find_first_of(separators), value.size());
        Add(value.substr(0, end), vr);
        value.remove_prefix(std::min(end + 1, value.size()));
    }
}

/// Narrows the range of sorted texts character by character: the effort for a place is the length of what matches, not
/// the number of texts.
std::size_t CKnownTexts::MatchAt(std::string_view text, std::size_t place) const
{
    if (IsInsideWord(text, place))
    {
        return 0;
    }
    std::size_t longest = 0;
    auto first = m_texts.begin();
    auto last = m_texts.end();
    for (std::size_t depth = 0; first != last && place + depth < text.size(); ++depth)
    {
        const int character = static_cast<unsigned char>(text[place + depth]);
        const auto at = [depth](std::string_view known)
        { return known.size() <= depth ? -1 : static_cast<int>(static_cast<unsigned char>(known[depth])); };
        first = std::partition_point(first, last, [&](std::string_view known) { return at(known) < character; });
        last = std::partition_point(first, last, [&](std::string_view known) { return at(known) <= character; });
        const std::size_t end = place + depth + 1;
        longest = first != last && first->size() == depth + 1 && !IsInsideWord(text, end) ? depth + 1 : longest;
    }
    return longest;
}

bool CKnownTexts::AreIn(std::string_view text) const
{
    const std::string folded = FoldCase(text);
    for (std::size_t place = 0; place < folded.size(); ++place)
    {
        if (MatchAt(folded, place) > 0)
        {
            return true;
        }
    }
    return false;
}

bool CKnownTexts::AreInComments(const CDcmFrameList& frames) const
{
    for (int i = 0; i < frames.GetCount(); ++i)
    {
        if (AreIn(CommentsOf(frames.GetFrame(i)->Data(), frames.GetFrame(i)->Size())))
        {
            return true;
        }
    }
    return false;
}

bool CKnownTexts::AreIn(const CDcmElement& element, CWalkCharacters& characters) const
{
    const CValueBytes value = element.ValueBytes();
    return AreIn(value.View()) || (HoldsWords(element) && !IsAscii(value.View()) &&
                                   AreIn(characters.Here().ToUtf8(value.View(), LettersOf(element)).Joined()));
}

std::string CKnownTexts::Cleaned(const CDcmElement& element, CWalkCharacters& characters) const
{
    const CValueBytes value = element.ValueBytes();
    if (!IsAscii(value.View()))
    {
        const SDecodedText decoded = characters.Here().ToUtf8(value.View(), LettersOf(element));
        const std::string text = decoded.Joined();
        const std::string cleaned = Cleaned(text);
        const SEncodedText encoded = characters.Here().FromUtf8(cleaned, LettersOf(element));
        if (decoded.replaced == 0 && encoded.reason.IsEmpty())
        {
            return cleaned == text ? std::string(value.View()) : encoded.bytes;
        }
    }
    return Cleaned(value.View());
}

std::string CKnownTexts::Cleaned(std::string_view text) const
{
    std::string cleaned;
    const std::string folded = FoldCase(text);
    for (std::size_t place = 0; place < folded.size();)
    {
        const std::size_t size = MatchAt(folded, place);
        // An asterisk for each character, so that the text does not grow beyond what its VR allows.
        cleaned += size > 0 ? std::string(CountCharacters(text.substr(place, size)), '*') : std::string(1, text[place]);
        place += std::max<std::size_t>(size, 1);
    }
    StarNumbersAndMail(cleaned);
    return cleaned;
}
