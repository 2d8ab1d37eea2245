#include "Varnotix/registry/ConfidentialityProfile.h"

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/registry/DataFiles.h"
#include "Varnotix/registry/Tag.h"

#include <array>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace Varnotix
{

namespace
{

constexpr std::size_t kOptions = 10;
constexpr int kCurves = 0x5000;
constexpr int kOverlays = 0x6000;
constexpr int kRepeating = 0xFF00; // The part of a group number that repeating groups have in common.

constexpr std::array<const char*, 12> kActionTexts = {"-", "K",   "C",   "X",   "Z",     "D",
                                                      "U", "Z/D", "X/Z", "X/D", "X/Z/D", "X/Z/U*"};

/// A line of the file.
struct SRow
{
    EProfileAction basic;
    unsigned kept;    // Options that keep the attribute.
    unsigned cleaned; // Options that clean it.
};

std::optional<EProfileAction> ActionOf(std::string_view text)
{
    for (std::size_t i = 0; i < kActionTexts.size(); ++i)
    {
        if (text == kActionTexts[i])
        {
            return static_cast<EProfileAction>(i);
        }
    }
    return std::nullopt;
}

/// Cuts the text up to the next comma off the front of the line.
std::string_view NextField(std::string_view& line)
{
    const std::size_t comma = line.find(',');
    const std::string_view field = TrimBlanks(line.substr(0, comma));
    line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
    return field;
}

/// The table of the profile.
class CProfile
{
public:
    CProfile()
    {
        m_path = ReadDataFile("deidentification.txt", [this](std::string_view line) { TakeLine(line); });
        if (m_isDamaged || !m_private)
        {
            m_rows.clear();
            m_curves.reset();
            m_private.reset();
        }
    }

    const SRow* Find(DWORD tag) const
    {
        const int group = Tag::Group(tag);
        if (Tag::IsPrivate(tag))
        {
            return m_private ? &*m_private : nullptr;
        }
        if ((group & kRepeating) == kCurves)
        {
            return m_curves ? &*m_curves : nullptr;
        }
        const bool isOverlay = (group & kRepeating) == kOverlays;
        const auto place = m_rows.find(isOverlay ? Tag::Make(kOverlays, Tag::Element(tag)) : tag);
        return place == m_rows.end() ? nullptr : &place->second;
    }

    int Size() const
    {
        return static_cast<int>(m_rows.size()) + static_cast<int>(m_curves.has_value()) +
               static_cast<int>(m_private.has_value());
    }

    const CString& Path() const { return m_path; }

private:
    void TakeLine(std::string_view line)
    {
        if (line.empty() || line.front() == '#')
        {
            return;
        }
        const std::string_view group = NextField(line);
        const bool isPrivate = group == "private";
        const std::string_view element = isPrivate ? std::string_view() : NextField(line);
        const std::optional<EProfileAction> basic = ActionOf(NextField(line));
        const std::string_view options = NextField(line);
        if (!basic || options.size() != kOptions || options.find_first_not_of("KC-") != std::string_view::npos)
        {
            m_isDamaged = true;
            return;
        }
        SRow row{*basic, 0, 0};
        for (std::size_t i = 0; i < kOptions; ++i)
        {
            (options[i] == 'K' ? row.kept : row.cleaned) |= options[i] == '-' ? 0U : 1U << i;
        }
        Add(isPrivate, group, element, row);
    }

    void Add(bool isPrivate, std::string_view group, std::string_view element, const SRow& row)
    {
        const bool isCurve = group == "50xx" && element == "xxxx";
        const std::optional<DWORD> tag = Tag::Parse(group == "60xx" ? "6000" : group, element);
        if (isPrivate)
        {
            m_private = row;
        }
        else if (isCurve)
        {
            m_curves = row;
        }
        else if (tag)
        {
            m_rows.insert_or_assign(*tag, row);
        }
        else
        {
            m_isDamaged = true;
        }
    }

    CString m_path;
    std::unordered_map<DWORD, SRow> m_rows;
    std::optional<SRow> m_curves;
    std::optional<SRow> m_private; // The last line of the file; without it the file was cut off.
    bool m_isDamaged = false;
};

const CProfile& Profile()
{
    static const CProfile profile;
    return profile;
}

} // namespace

EProfileAction ProfileAction(DWORD tag, unsigned options)
{
    const SRow* row = Profile().Find(tag);
    if (row == nullptr)
    {
        return EProfileAction::None;
    }
    if ((row->cleaned & options) != 0)
    {
        return EProfileAction::Clean;
    }
    return (row->kept & options) != 0 ? EProfileAction::Keep : row->basic;
}

EProfileAction ActionForType(EProfileAction action, EAttributeNeed need)
{
    const bool isOptional = need == EAttributeNeed::Optional;
    const bool isPresent = need == EAttributeNeed::Present;
    switch (action)
    {
    case EProfileAction::EmptyOrDummy:
        return isOptional || isPresent ? EProfileAction::Empty : EProfileAction::Dummy;
    case EProfileAction::RemoveOrEmpty:
        return isOptional ? EProfileAction::Remove : EProfileAction::Empty;
    case EProfileAction::RemoveOrDummy:
        return isOptional ? EProfileAction::Remove : EProfileAction::Dummy;
    case EProfileAction::RemoveEmptyOrDummy:
    case EProfileAction::RemoveEmptyOrUids:
        if (isOptional || isPresent)
        {
            return isOptional ? EProfileAction::Remove : EProfileAction::Empty;
        }
        return action == EProfileAction::RemoveEmptyOrUids ? EProfileAction::NewUid : EProfileAction::Dummy;
    default:
        return action;
    }
}

const char* ProfileActionText(EProfileAction action)
{
    return kActionTexts[static_cast<std::size_t>(action)];
}

int ProfileSize()
{
    return Profile().Size();
}

const CString& ProfilePath()
{
    return Profile().Path();
}

} // namespace Varnotix
