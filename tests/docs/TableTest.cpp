// The tables of the pages, compared with the classes that they list.

#include "Page.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <regex>

namespace
{

std::string Code(const std::string& text)
{
    return "`" + text + "`";
}

std::string NameOf(const CObject& object)
{
    return object.GetRuntimeClass()->m_lpszClassName;
}

std::string Row(const Lines& cells)
{
    std::string row = "|";
    for (const std::string& cell : cells)
    {
        row += " " + cell + " |";
    }
    return row;
}

/// A table's head and the line below it.
Lines Head(const Lines& cells)
{
    std::string rule = "|";
    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        rule += "---|";
    }
    return {Row(cells), rule};
}

/// What a page says of each class in the third column of a table, by the code in the first.
std::map<std::string, std::string> Subjects(const Lines& table)
{
    const std::regex row(R"(\| `(\w+)` \| [^|]* \| ([^|]*) \|.*)");
    std::map<std::string, std::string> subjects;
    for (const std::string& line : table)
    {
        if (std::smatch match; std::regex_match(line, match, row))
        {
            subjects[match[1]] = match[2];
        }
    }
    return subjects;
}

/// True when the place in the standard, which ends the subject, stands in the header: "(PS3.3 C.7.1.1".
bool HasReference(const std::string& header, const std::string& subject)
{
    const std::size_t start = subject.find("(PS3.");
    return start != std::string::npos &&
           header.find(subject.substr(start, subject.find_first_of(",)", start) - start)) != std::string::npos;
}

/// One row for each class derived from a base that declares attributes and has a header in one of the catalogue's
/// folders. The words that tell what it is for are those of the page, as long as the class's header names the place.
Lines CatalogueTable(const CRuntimeClass* base, const char* subject, const Lines& shown)
{
    std::map<std::string, std::string> subjects = Subjects(shown);
    std::map<std::string, std::string> rows;
    for (const CRuntimeClass* record : CRuntimeClass::Classes())
    {
        if (!record->IsDerivedFrom(base))
        {
            continue;
        }
        const std::string name(record->m_lpszClassName);
        const std::unique_ptr<CObject> object(record->CreateObject());
        const int count = static_cast<const CDcmAttributeSet&>(*object).GetDcmElementSet().GetCount();
        for (const std::string folder : {"modules/", "pixel/"})
        {
            const std::string header = ReadText(ProjectFolder() / "Varnotix" / folder / (name.substr(1) + ".h"));
            if (count > 0 && !header.empty())
            {
                rows[name] =
                    Row({Code(name), folder, HasReference(header, subjects[name]) ? subjects[name] : "no such place",
                         std::to_string(count)});
            }
        }
    }
    Lines table = Head({"Class", "Folder", subject, "Attributes"});
    for (const auto& [name, row] : rows)
    {
        table.push_back(row);
    }
    return table;
}

/// One entity, with its modules in their order.
struct SEntity
{
    std::string name;
    Lines modules;
};

template <class ENTITY, class IOD>
SEntity EntityOf(IOD& iod, const std::string& name)
{
    SEntity entity{name, {}};
    ENTITY& held = iod.template Entity<ENTITY>();
    for (int i = 0; i < held.GetCount(); ++i)
    {
        entity.modules.push_back(NameOf(*held.GetAt(i)));
    }
    return entity;
}

/// Adds a row an entity, and holds the entities to the modules that the object registers.
void AddObject(const CDcmIOD& iod, const std::vector<SEntity>& entities, Lines& table)
{
    Lines registered;
    for (int i = 0; i < iod.ModuleCount(); ++i)
    {
        registered.push_back(NameOf(iod.ModuleAt(i)));
    }
    Lines listed;
    for (const SEntity& entity : entities)
    {
        std::string cell;
        for (const std::string& module : entity.modules)
        {
            cell += (cell.empty() ? "" : ", ") + Code(module);
            listed.push_back(module);
        }
        table.push_back(Row({&entity == &entities.front() ? Code(NameOf(iod)) : "", entity.name, cell}));
    }
    EXPECT_EQ(listed, registered) << NameOf(iod);
}

const SEntity kFile{"File", {"CDcmMetaFileInformation"}};

template <class IOD, class... ENTITIES>
void AddComposite(Lines& table, std::initializer_list<const char*> names)
{
    IOD iod;
    auto name = names.begin();
    AddObject(iod, {kFile, EntityOf<ENTITIES>(iod, *name++)...}, table);
}

using IE = CDcmCompositeIE;

Lines IodTable()
{
    Lines table = Head({"Class", "Entity", "Modules, in the order of their registration"});
    AddComposite<CCRImageIOD, IE::composite_patient_ie, IE::composite_equipment_ie, IE::composite_study_ie,
                 IE::series_ie_cr, IE::image_ie_cr>(table, {"Patient", "Equipment", "Study", "Series", "Image"});
    AddComposite<CCTImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_equipment_ie,
                 IE::composite_series_ie, IE::composite_frameref_ie, IE::image_ie_ct>(
        table, {"Patient", "Study", "Equipment", "Series", "Frame of reference", "Image"});
    AddComposite<CMRImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_equipment_ie,
                 IE::composite_series_ie, IE::composite_frameref_ie, IE::image_ie_mr>(
        table, {"Patient", "Study", "Equipment", "Series", "Frame of reference", "Image"});
    AddComposite<CNMImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::series_ie_nm,
                 IE::composite_frameref_ie, IE::composite_equipment_ie, IE::image_ie_nm>(
        table, {"Patient", "Study", "Series", "Frame of reference", "Equipment", "Image"});
    AddComposite<CUSImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_series_ie,
                 IE::composite_equipment_ie, IE::frame_ie_us, IE::curve_ie_us, IE::image_ie_us>(
        table, {"Patient", "Study", "Series", "Equipment", "Frame of reference", "Curve", "Image"});
    AddComposite<CUSMultiFrameImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_series_ie,
                 IE::composite_equipment_ie, IE::frame_ie_us, IE::curve_ie_us, IE::image_ie_us_multi>(
        table, {"Patient", "Study", "Series", "Equipment", "Frame of reference", "Curve", "Image"});
    AddComposite<CSCImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_series_ie,
                 IE::equipment_ie_sc, IE::image_ie_sc>(table, {"Patient", "Study", "Series", "Equipment", "Image"});
    AddComposite<CSCMultiFrameImageIOD, IE::composite_patient_ie, IE::composite_study_ie, IE::composite_series_ie,
                 IE::equipment_ie_sc, IE::image_ie_sc_multi>(table,
                                                             {"Patient", "Study", "Series", "Equipment", "Image"});
    AddObject(CPatientInformationIOD(),
              {{"SOP", {"CDcmSOPCommonModule"}},
               kFile,
               {"Patient",
                {"CDcmPatientRelationshipModule", "CDcmPatientIdentificationModule", "CDcmPatientDemographicModule",
                 "CDcmPatientMedicalModule"}}},
              table);
    return table;
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

/// What the host tool takes each SOP class of the UID table for, as far as it knows it.
Lines SopClassTable()
{
    const CDcmRegistry& registry = CDcmRegistry::Global();
    std::string arguments = "dump";
    for (int i = 0; i < registry.UidDictionarySize(); ++i)
    {
        WriteObject(std::to_string(i), registry.UidString(i));
        arguments += " " + std::to_string(i);
    }
    EXPECT_EQ(StatusOf("varnotix", arguments), 0) << ReadText("err.txt");
    Lines table = Head({"SOP Class", "UID", "Class"});
    int index = 0;
    const std::string kind = "#IOD_KIND=";
    for (const std::string& line : LinesOf(ReadOutput()))
    {
        if (line.starts_with(kind))
        {
            const std::string name = line.substr(kind.size());
            if (name != "CDcmCompositeIOD")
            {
                table.push_back(Row({std::string(registry.UidName(index).CText()),
                                     std::string(registry.UidString(index).CText()), Code(name)}));
            }
            ++index;
        }
    }
    EXPECT_EQ(index, registry.UidDictionarySize());
    return table;
}

} // namespace

TEST(Catalogue, ListsEveryModuleAndSequence)
{
    InitDicomDLL();
    const Lines page = LinesOfFile("docs/catalogue.md");
    const Lines modules = Table(page, "## Modules");
    const Lines sequences = Table(page, "## Sequences and macros");
    EXPECT_EQ(modules.size(), 2U + 67U);
    EXPECT_EQ(sequences.size(), 2U + 38U);
    EXPECT_EQ(modules, CatalogueTable(RUNTIME_CLASS(CDcmModule), "Module", modules));
    EXPECT_EQ(sequences, CatalogueTable(RUNTIME_CLASS(CDcmSequence), "Item or macro", sequences));
}

TEST(Conformance, ListsTheModulesOfEachObject)
{
    EXPECT_EQ(Table(LinesOfFile("docs/conformance.md"), "### Entities and modules"), IodTable());
}

TEST(Conformance, ListsTheSopClassesThatHaveAClass)
{
    EXPECT_EQ(Table(LinesOfFile("docs/conformance.md"), "### SOP Classes"), SopClassTable());
}
