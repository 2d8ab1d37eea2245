#include "json/BulkUri.h"

#include "Varnotix/platform/FileSearch.h"

#include <filesystem>

namespace
{

constexpr std::string_view kScheme = "file://";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

void AppendEscaped(std::string& uri, std::string_view text, std::string_view kept)
{
    constexpr std::string_view kUnreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    for (const char c : text)
    {
        if (kUnreserved.find(c) != std::string_view::npos || kept.find(c) != std::string_view::npos)
        {
            uri += c;
        }
        else
        {
            const unsigned char code = static_cast<unsigned char>(c);
            uri += '%';
            uri += kHexDigits[code >> 4U];
            uri += kHexDigits[code & 0xFU];
        }
    }
}

std::optional<std::string> Unescaped(std::string_view text)
{
    const auto digit = [&](std::size_t index)
    {
        const char c = index < text.size() ? text[index] : '\0';
        return kHexDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
    };
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] != '%')
        {
            plain += text[i];
            continue;
        }
        const std::size_t high = digit(i + 1);
        const std::size_t low = digit(i + 2);
        if (high == std::string_view::npos || low == std::string_view::npos)
        {
            return std::nullopt;
        }
        plain += static_cast<char>(high << 4U | low);
        i += 2;
    }
    return plain;
}

bool HasDrive(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':';
}

} // namespace

std::string BulkUri(const CString& file, std::string_view place)
{
    const std::string whole(Varnotix::JoinPath(Varnotix::CurrentDirectory(), file).View());
    const std::string path = std::filesystem::path(whole).generic_string();
    std::string uri(kScheme);
    uri += HasDrive(path) ? "/" : "";
    AppendEscaped(uri, path, HasDrive(path) ? "/:" : "/");
    uri += '#';
    AppendEscaped(uri, place, "");
    return uri;
}

std::optional<SBulkPlace> BulkPlaceOf(std::string_view uri)
{
    const std::size_t mark = uri.find('#');
    if (!uri.starts_with(kScheme) || mark == std::string_view::npos)
    {
        return std::nullopt;
    }
    const std::optional<std::string> place = Unescaped(uri.substr(mark + 1));
    std::optional<std::string> path = Unescaped(uri.substr(kScheme.size(), mark - kScheme.size()));
    // Between the scheme and the path may be the name of a machine.
    if (!place.has_value() || !path.has_value() || !path->starts_with('/'))
    {
        return std::nullopt;
    }
    if (HasDrive(std::string_view(*path).substr(1)))
    {
        path->erase(0, 1);
    }
    return SBulkPlace{CString(std::string_view(*path)), *place};
}

const CDcmElement* FindBulk(const CDcmElementSet& set, std::string_view place)
{
    const std::optional<Varnotix::CElementPath> path = Varnotix::CElementPath::Parse(place);
    return path.has_value() ? path->Find(set) : nullptr;
}
