#include "deid/Words.h"

#include "Varnotix/platform/Ascii.h"

#include <algorithm>

namespace
{

constexpr std::size_t kDigitsInRow = 6;

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// True for the first byte of a character of two bytes: a letter, mostly.
bool IsLead(char character)
{
    const int byte = static_cast<unsigned char>(character);
    return byte >= 0xC3 && byte <= 0xDF;
}

bool IsTrail(char character)
{
    const int byte = static_cast<unsigned char>(character);
    return byte >= 0x80 && byte <= 0xBF;
}

/// The small letter of a capital that has two bytes; any other character as it is.
int SmallLetter(int code)
{
    constexpr int kStep = 0x20;
    constexpr int kLongStep = 0x50;
    constexpr int kFinalSigma = 0x3C2;
    const auto isIn = [code](int first, int last) { return code >= first && code <= last; };
    if ((isIn(0xC0, 0xDE) && code != 0xD7) || isIn(0x391, 0x3A9) || isIn(0x410, 0x42F))
    {
        return code + kStep;
    }
    if (code == kFinalSigma)
    {
        return code + 1;
    }
    if (isIn(0x400, 0x40F))
    {
        return code + kLongStep;
    }
    // Latin Extended-A has pairs of a capital and its small letter.
    const bool isEven = isIn(0x100, 0x137) || isIn(0x14A, 0x177);
    const bool isOdd = isIn(0x139, 0x148) || isIn(0x179, 0x17E);
    return (isEven && code % 2 == 0) || (isOdd && code % 2 == 1) ? code + 1 : code;
}

/// Puts asterisks in place of every run of characters that a condition holds for and that is meant.
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

bool IsLetter(char character)
{
    const char lower = Varnotix::Lower(character);
    return lower >= 'a' && lower <= 'z';
}

std::string FoldCase(std::string_view text)
{
    constexpr int kTrailBits = 6;
    constexpr int kTrailMask = 0x3F;
    std::string folded(text);
    for (std::size_t i = 0; i < folded.size(); ++i)
    {
        if (i + 1 == folded.size() || !IsLead(folded[i]) || !IsTrail(folded[i + 1]))
        {
            folded[i] = Varnotix::Lower(folded[i]);
            continue;
        }
        const int code = (static_cast<unsigned char>(folded[i]) & 0x1F) << kTrailBits |
                         (static_cast<unsigned char>(folded[i + 1]) & kTrailMask);
        const int small = SmallLetter(code);
        folded[i] = static_cast<char>(0xC0 | small >> kTrailBits);
        folded[i + 1] = static_cast<char>(0x80 | (small & kTrailMask));
        ++i;
    }
    return folded;
}

std::size_t CountCharacters(std::string_view text)
{
    const auto trails = std::count_if(text.begin(), text.end(), IsTrail);
    return std::max<std::size_t>(text.size() - static_cast<std::size_t>(trails), 1);
}

bool IsInsideWord(std::string_view text, std::size_t place)
{
    if (place == 0 || place >= text.size())
    {
        return false;
    }
    const char before = text[place - 1];
    const bool followsWord =
        IsDigit(before) || IsLetter(before) || (place > 1 && IsTrail(before) && IsLead(text[place - 2]));
    return followsWord && (IsDigit(text[place]) || IsLetter(text[place]) || IsLead(text[place]));
}

void StarNumbersAndMail(std::string& text)
{
    StarRuns(text, IsDigit, [](std::string_view run) { return run.size() >= kDigitsInRow; });
    StarRuns(
        text, [](char c) { return kWordEnds.find(c) == std::string_view::npos; },
        [](std::string_view run) { return run.find('@') != std::string_view::npos; });
}
