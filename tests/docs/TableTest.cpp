// The tables of the pages, compared with the classes that they list.

#include "Page.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <regex>

namespace
{

/// Holds each row of a catalogue's table to its class: its header, the place in the standard, the attributes.
void ExpectRows(const std::string& heading, const CRuntimeClass* base, std::size_t count)
{
    const std::regex pattern(R"(\| `(\w+)` \| [^|]*(\(PS3\.[^,)|]*)[^|]* \| (\d+) \|)");
    Lines table = Table(LinesOfFile("docs/catalogue.md"), heading);
    ASSERT_EQ(table.size(), 2 + count);
    table.erase(table.begin(), table.begin() + 2);
    std::string last;
    for (const std::string& line : table)
    {
        std::smatch row;
        ASSERT_TRUE(std::regex_match(line, row, pattern)) << line;
        const std::string name = row[1];
        EXPECT_LT(last, name);
        last = name;
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(name.c_str()));
        ASSERT_TRUE(object != nullptr && object->GetRuntimeClass()->IsDerivedFrom(base)) << line;
        EXPECT_EQ(static_cast<const CDcmAttributeSet&>(*object).GetDcmElementSet().GetCount(), std::stoi(row[3]))
            << line;
        const char* folder = name == "CDcmImagePixelModule" ? "pixel" : "catalogue";
        const std::string header = ReadText(ProjectFolder() / "Varnotix" / folder / (name.substr(1) + ".h"));
        EXPECT_NE(header.find(row[2]), std::string::npos) << line;
    }
}

/// Writes an object that holds nothing but its SOP Class UID.
void WriteObject(const std::string& path, const CString& sopClass)
{
    CDcmIOD iod;
    iod.ElementStore().AddKnown("0008", "0016")->AddText(sopClass);
    CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    iod.Serialize(archive);
}

} // namespace

TEST(Catalogue, ListsEveryModuleAndSequence)
{
    InitDicomDLL();
    ExpectRows("## Modules", RUNTIME_CLASS(CDcmModule), 67);
    ExpectRows("## Sequences and macros", RUNTIME_CLASS(CDcmSequence), 38);
}

TEST(Conformance, ListsTheModulesOfEachObject)
{
    InitDicomDLL();
    const std::regex row(R"(\| (?:`(\w+)`)? \| [\w ]+ \| (.*) \|)");
    const std::regex code("`(\\w+)`");
    std::map<std::string, Lines> listed;
    std::string kind;
    for (const std::string& line : Table(LinesOfFile("docs/conformance.md"), "### Entities and modules"))
    {
        if (std::smatch match; std::regex_match(line, match, row))
        {
            kind = match[1].matched ? match[1].str() : kind;
            const std::string modules = match[2];
            const std::sregex_token_iterator first(modules.begin(), modules.end(), code, 1);
            listed[kind].insert(listed[kind].end(), first, {});
        }
    }
    EXPECT_EQ(listed.size(), 9U);
    for (const auto& [name, modules] : listed)
    {
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(name.c_str()));
        const auto* iod = dynamic_cast<const CDcmIOD*>(object.get());
        ASSERT_NE(iod, nullptr) << name;
        Lines registered;
        for (int i = 0; i < iod->ModuleCount(); ++i)
        {
            registered.emplace_back(iod->ModuleAt(i).GetRuntimeClass()->m_lpszClassName);
        }
        EXPECT_EQ(modules, registered) << name;
    }
}

TEST(Conformance, ListsTheSopClassesThatTheHostToolKnows)
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    std::string arguments = "dump";
    for (int i = 0; i < registry.UidDictionarySize(); ++i)
    {
        WriteObject(std::to_string(i), registry.UidString(i));
        arguments += " " + std::to_string(i);
    }
    ASSERT_EQ(StatusOf("varnotix", arguments), 0) << ReadText("err.txt");
    Lines known;
    int index = 0;
    const std::string kind = "#IOD_KIND=";
    for (const std::string& line : LinesOf(ReadOutput()))
    {
        if (line.starts_with(kind))
        {
            const std::string name = line.substr(kind.size());
            if (name != "CDcmCompositeIOD")
            {
                known.push_back("| " + std::string(registry.UidName(index).View()) + " | " +
                                std::string(registry.UidString(index).View()) + " | `" + name + "` |");
            }
            ++index;
        }
    }
    EXPECT_EQ(index, registry.UidDictionarySize());
    Lines table = Table(LinesOfFile("docs/conformance.md"), "### SOP Classes");
    ASSERT_GT(table.size(), 2U);
    table.erase(table.begin(), table.begin() + 2);
    EXPECT_EQ(table, known);
}
