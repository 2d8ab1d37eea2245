#include "deid/SafePrivate.h"

#include "Varnotix/platform/Ascii.h"
#include "files/Input.h"

bool CSafePrivate::Read(const CString& path, const CReport& report)
{
    CStringArray lines;
    if (!ReadScript(path, lines, report))
    {
        return false;
    }
    for (int i = 0; i < lines.GetSize(); ++i)
    {
        const std::string_view line = Varnotix::TrimBlanks(lines[i].View());
        if (line.empty() || line.front() == '#')
        {
            continue;
        }
        const auto parsed = Varnotix::CElementPath::Parse(line);
        if (!parsed || parsed->Steps().size() != 1 || parsed->Steps().front().creator.IsEmpty())
        {
            CString number;
            number.Format(":%d: ", i + 1);
            report.Error(path + number + "not a private attribute with its creator, such as (0019,\"ACME 1.0\",0C)");
            return false;
        }
        const Varnotix::SPathStep& step = parsed->Steps().front();
        const int group = Varnotix::Tag::Group(step.tag);
        const std::string creator(step.creator.View());
        m_listed.emplace(group, creator, Varnotix::Tag::Element(step.tag) & 0xFF);
        m_creators.emplace(group, creator);
    }
    return true;
}

bool CSafePrivate::Holds(DWORD tag, const std::string& creator) const
{
    const int group = Varnotix::Tag::Group(tag);
    return IsCreator(tag) ? m_creators.contains({group, creator})
                          : m_listed.contains({group, creator, Varnotix::Tag::Element(tag) & 0xFF});
}

bool CSafePrivate::IsCreator(DWORD tag)
{
    constexpr int kLastCreator = 0xFF;
    return Varnotix::Tag::IsPrivate(tag) && Varnotix::Tag::Element(tag) <= kLastCreator;
}
