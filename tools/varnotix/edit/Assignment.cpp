#include "edit/Assignment.h"

namespace
{

/// Where the equals sign is that ends the path.
std::size_t EndOfPath(std::string_view argument)
{
    bool isQuoted = false;
    for (std::size_t i = 0; i < argument.size(); ++i)
    {
        isQuoted = isQuoted != (argument[i] == '"');
        if (argument[i] == '=' && !isQuoted)
        {
            return i;
        }
    }
    return std::string_view::npos;
}

bool IsCapital(char c)
{
    return c >= 'A' && c <= 'Z';
}

/// Takes ":VR" from the end of a path.
CString TakeVr(std::string_view& path)
{
    constexpr std::size_t kSize = 3;
    if (path.size() <= kSize)
    {
        return CString();
    }
    const std::string_view end = path.substr(path.size() - kSize);
    if (end[0] != ':' || !IsCapital(end[1]) || !IsCapital(end[2]))
    {
        return CString();
    }
    path.remove_suffix(kSize);
    return CString(end.substr(1));
}

} // namespace

EArgument ReadAssignment(std::string_view argument, SAssignment& assignment)
{
    const std::size_t end = EndOfPath(argument);
    if (end == std::string_view::npos)
    {
        return EArgument::NoAssignment;
    }
    std::string_view path = argument.substr(0, end);
    assignment.vr = TakeVr(path);
    assignment.value = CString(argument.substr(end + 1));
    const std::optional<Varnotix::CElementPath> read = Varnotix::CElementPath::Parse(path);
    if (!read)
    {
        return EArgument::BadPath;
    }
    assignment.path = *read;
    return EArgument::Assignment;
}
