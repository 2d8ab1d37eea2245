#include "deid/KnownTexts.h"

#include "Varnotix/platform/Ascii.h"
#include "codestream/Comments.h"
#include "deid/DeidRecord.h"
#include "deid/Values.h"

#include <algorithm>

namespace
{

constexpr std::size_t kShortest = 4;     // Shorter texts are found everywhere.
constexpr std::size_t kShortestName = 3; // In letters of ASCII.
constexpr std::size_t kLongest = 256;    // Longer ones are not repeated word by word.
constexpr std::size_t kDigitsInRow = 6;
constexpr std::string_view kSeparators(" \t\r\n^=\\,;()[]<>\"'\0", 18);

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsLetter(char character)
{
    const char lower = Varnotix::Lower(character);
    return lower >= 'a' && lower <= 'z';
}

/// True for characters of words: two of them side by side are one word. Bytes beyond ASCII are not among them, because
/// several scripts have no blanks between words.
bool IsWord(char character)
{
    return IsDigit(character) || IsLetter(character);
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Varnotix::Lower);
    return lower;
}

/// Puts asterisks in place of every run of characters that a condition holds for and that is long enough.
template <class IS_PART, class IS_MEANT>
void StarRuns(std::string& text, const IS_PART& isPart, const IS_MEANT& isMeant)
{
    for (std::size_t begin = 0; begin < text.size();)
    {
        std::size_t end = begin;
        while (end < text.size() && isPart(text[end]))
        {
            ++end;
        }
        if (isMeant(std::string_view(text).substr(begin, end - begin)))
        {
            std::fill(text.begin() + static_cast<std::ptrdiff_t>(begin),
                      text.begin() + static_cast<std::ptrdiff_t>(end), '*');
        }
        begin = std::max(end, begin + 1);
    }
}

} // namespace

void CKnownTexts::Gather(CDcmElementSet& store, unsigned options)
{
    using Varnotix::EProfileAction;
    const auto visit = [this, options](const Varnotix::SWalkPlace& place)
    {
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
    const auto visit = [&](const Varnotix::SWalkPlace& place)
    {
        const CDcmElement& element = place.element;
        const bool isListed = Varnotix::ProfileAction(element.Tag(), options) != Varnotix::EProfileAction::None;
        const bool isText = HoldsWords(element) || element.HasVr(VR_UN) || element.HasVr(VR_OB);
        const bool stays =
            !isListed || Varnotix::Tag::IsPrivate(element.Tag()) || element.Tag() == kEncapsulatedDocument;
        const CDcmFrameList* frames = element.Frames();
        const bool isLeft = frames != nullptr
                                ? AreInComments(*frames)
                                : stays && isText && element.Items() == nullptr && AreIn(element.ValueBytes().View());
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
    std::string lower = LowerCase(text);
    const bool isPublic = vr == VR_UI && CDcmRegistry::Global().UidEnum(CString(text)) >= 0;
    if (text.size() >= (isShortName ? kShortestName : kShortest) && text.size() <= kLongest && !isPublic &&
        lower != LowerCase(kDummyWord))
    {
        m_texts.push_back(std::move(lower));
    }
}

void CKnownTexts::AddParts(std::string_view value, int vr)
{
    const std::string_view separators = vr == VR_PN ? kSeparators : "\\";
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
    if (place > 0 && IsWord(text[place - 1]) && IsWord(text[place]))
    {
        return 0; // Inside a word.
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
        const bool endsWord = end == text.size() || !IsWord(text[end]) || !IsWord(text[end - 1]);
        longest = first != last && first->size() == depth + 1 && endsWord ? depth + 1 : longest;
    }
    return longest;
}

bool CKnownTexts::AreIn(std::string_view text) const
{
    const std::string lower = LowerCase(text);
    for (std::size_t place = 0; place < lower.size(); ++place)
    {
        if (MatchAt(lower, place) > 0)
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

std::string CKnownTexts::Cleaned(std::string_view text) const
{
    std::string cleaned(text);
    const std::string lower = LowerCase(text);
    for (std::size_t place = 0; place < lower.size();)
    {
        const std::size_t size = MatchAt(lower, place);
        cleaned.replace(place, size, size, '*');
        place += std::max<std::size_t>(size, 1);
    }
    StarRuns(cleaned, IsDigit, [](std::string_view run) { return run.size() >= kDigitsInRow; });
    StarRuns(
        cleaned, [](char c) { return kSeparators.find(c) == std::string_view::npos; },
        [](std::string_view run) { return run.find('@') != std::string_view::npos; });
    return cleaned;
}
