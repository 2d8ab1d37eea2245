#include "AccessorCheck.h"

#include "Elements.h"
#include "Varnotix/iod/DcmIOD.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace
{

/// The lines of the page that tells the catalogue.
const std::set<std::string>& PageLines()
{
    static const std::set<std::string> lines = []
    {
        const char* data = std::getenv("VARNOTIX_DATA");
        std::ifstream page(std::filesystem::path(data != nullptr ? data : ".").parent_path() / "docs" / "catalogue.md");
        std::set<std::string> read;
        for (std::string line; std::getline(page, line);)
        {
            read.insert(line);
        }
        EXPECT_FALSE(read.empty());
        return read;
    }();
    return lines;
}

/// The letters and digits of a name in lower case, without possessives, as in an attribute's keyword.
std::string Keyword(std::string name)
{
    for (std::size_t at = name.find("'s"); at != std::string::npos; at = name.find("'s"))
    {
        name.erase(at, 2);
    }
    std::string keyword;
    for (const char character : name)
    {
        if (std::isalnum(static_cast<unsigned char>(character)) != 0)
        {
            keyword += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
        }
    }
    return keyword;
}

} // namespace

bool IsNamedForItsAttribute(const CString& className, const SAccessorRow& row, const CString& attribute)
{
    const std::string attributeName(attribute.View());
    const std::string withoutAbbreviation = attributeName.substr(0, attributeName.find(" ("));
    for (const std::string& keyword : {Keyword(attributeName), Keyword(withoutAbbreviation)})
    {
        const std::string name = Keyword(row.name);
        if (keyword == name || keyword == name + "sequence" || keyword == name + "codesequence")
        {
            return true;
        }
    }
    std::string group(row.group.View());
    if (group.starts_with("50") || group.starts_with("60"))
    {
        group.replace(2, 2, "xx");
    }
    CString line;
    line.Format("| `%s` | `%s` | (%s,%s) ", className.CText().data(), row.name, group.c_str(),
                row.element.CText().data());
    const std::string start(line.View());
    const auto found = PageLines().lower_bound(start);
    return found != PageLines().end() && found->starts_with(start);
}

void WriteAndRead(const CDcmElementSet& values, CDcmElementSet& target)
{
    CDcmIOD iod;
    CDcmElement* sequence = MakeSequence(0x0008, 0x1140, {});
    CDcmElementSet given;
    values.CopyNonEmptyInto(given);
    sequence->SetItems(given);
    iod.ElementStore().Add(sequence);
    CByteArray bytes;
    iod.ExportFileFormat(bytes);
    CDcmIOD again;
    again.Import(bytes);
    const CDcmElement* read = again.ElementStore().Find(0x0008, 0x1140);
    ASSERT_NE(read, nullptr);
    target.ReplaceItems(*read->Items());
}

void CheckDeclaration(const CDcmElementSet& set)
{
    EXPECT_TRUE(set.IsEmptyOfValues());
    for (int i = 0; i < set.GetCount(); ++i)
    {
        EXPECT_TRUE(set.GetAt(i)->HasEntry()) << set.GetAt(i)->GroupText().CText();
        EXPECT_TRUE(i == 0 || set.GetAt(i - 1)->Tag() < set.GetAt(i)->Tag());
    }
}
