#include "picture/FrameNames.h"

#include "console/Report.h"
#include "files/OutputFolder.h"
#include "object/Attributes.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace
{

/// A field whose value is an attribute.
struct SField
{
    const char* name;
    DWORD tag;
};

constexpr SField kFields[] = {
    {"uid", 0x00080018}, {"series", 0x0020000E}, {"study", 0x0020000D}, {"number", 0x00200013}};
constexpr const char* kFrame = "frame";
constexpr const char* kFile = "file";

CString FourDigits(unsigned long number)
{
    CString text;
    text.Format("%04lu", number);
    return text;
}

/// A value as a part of a file name: it must not lead to another folder, nor mean anything to a shell.
CString SafeName(const CString& value)
{
    std::string text(value.View());
    for (char& c : text)
    {
        const auto code = static_cast<unsigned char>(c);
        const bool isSafe = code >= 0x80 || std::isalnum(code) != 0 || c == '.' || c == '-' || c == '_' || c == ' ';
        c = isSafe ? c : '_';
    }
    if (!text.empty() && text[0] == '.')
    {
        text[0] = '_';
    }
    return CString(std::string_view(text));
}

/// The name of the input's file without the extensions of DICOM files. Others are often the end of a UID.
CString FileField(const CString& input)
{
    const CString name = input == "-" ? CString("stdin") : FileNameOf(input);
    for (const char* extension : {".dcm", ".dic", ".ima"})
    {
        CString end = name.Right(4);
        end.MakeLower();
        if (end == extension && name.GetLength() > 4)
        {
            return name.Left(name.GetLength() - 4);
        }
    }
    return name;
}

CString ValueOf(const CDcmElementSet& store, const SField& field)
{
    const CString text = TextOf(store, field.tag);
    const std::optional<int> number = WholeNumber(text);
    return number.has_value() && *number >= 0 ? FourDigits(static_cast<unsigned long>(*number)) : text;
}

} // namespace

CString CFrameNames::Refusal() const
{
    const std::string_view pattern = m_pattern.View();
    if (pattern.empty() || pattern.ends_with('/') || pattern.starts_with('/'))
    {
        return "it is not the name of a file below the output folder";
    }
    const std::filesystem::path path{std::string(pattern)};
    if (std::find(path.begin(), path.end(), "..") != path.end() || path.is_absolute() || path.has_root_name())
    {
        return "it leads out of the output folder";
    }
    for (std::size_t open = pattern.find('{'); open != std::string_view::npos; open = pattern.find('{', open + 1))
    {
        const std::size_t close = pattern.find('}', open);
        const std::string_view field = pattern.substr(open + 1, close - open - 1);
        const bool isKnown = field == kFrame || field == kFile ||
                             std::any_of(std::begin(kFields), std::end(kFields),
                                         [field](const SField& known) { return field == known.name; });
        if (close == std::string_view::npos || !isKnown)
        {
            return "it has the field '" + CString(field) +
                   "'; fields are {uid}, {series}, {study}, {number}, {file} and {frame}";
        }
    }
    return CString();
}

CString CFrameNames::Make(const CDcmElementSet& store, const CString& input, std::size_t frame, CString& name) const
{
    name.Empty();
    std::string_view rest = m_pattern.View();
    for (std::size_t open = rest.find('{'); open != std::string_view::npos; open = rest.find('{'))
    {
        const std::size_t close = rest.find('}', open);
        const std::string_view field = rest.substr(open + 1, close - open - 1);
        CString value;
        if (field == kFrame)
        {
            value = FourDigits(static_cast<unsigned long>(frame));
        }
        else if (field == kFile)
        {
            value = FileField(input);
        }
        else
        {
            const auto known = std::find_if(std::begin(kFields), std::end(kFields),
                                            [field](const SField& one) { return field == one.name; });
            value = ValueOf(store, *known);
            if (value.IsEmpty())
            {
                return "it has no " + TagAndName(known->tag) + " to name its frames by; --name chooses other names";
            }
        }
        name += CString(rest.substr(0, open)) + SafeName(value);
        rest.remove_prefix(close + 1);
    }
    name += CString(rest);
    return CString();
}

CString CTakenNames::Take(COwners& owners, const CString& path, const CString& owner)
{
    std::string key(path.View());
    if constexpr (std::filesystem::path::preferred_separator == '\\')
    {
        // Names that differ in case are one file there.
        std::transform(key.begin(), key.end(), key.begin(), [](unsigned char c) { return std::tolower(c); });
    }
    const std::lock_guard lock(m_mutex);
    const auto [place, isNew] = owners.try_emplace(std::move(key), owner);
    return isNew ? CString() : place->second;
}
