// The table of the confidentiality profile, held to attribute by attribute.
#include "ToolRunner.h"

#include <map>
#include <set>

namespace
{

constexpr DWORD kItems = 0x00081115; // A sequence that the table does not list.
constexpr DWORD kManufacturer = 0x00080070;
constexpr DWORD kName = 0x00100010;

/// A line of the table.
struct SRow
{
    DWORD tag;
    char basic; // Of several actions the last, which unknown classes of objects get.
    std::string options;
};

std::vector<SRow> Table()
{
    std::vector<SRow> rows;
    std::ifstream file(FolderOf("VARNOTIX_DATA") / "deidentification.txt");
    for (std::string line; std::getline(file, line);)
    {
        if (line.empty() || line[0] == '#')
        {
            continue;
        }
        const bool isPrivate = line.starts_with("private,");
        std::string tag = isPrivate ? "00091001" : line.substr(0, 4) + line.substr(5, 4);
        tag = tag == "50xxxxxx" ? "50043000" : tag.starts_with("60xx") ? "6002" + tag.substr(4) : tag;
        const std::string rest = line.substr(isPrivate ? 8 : 10);
        const std::string basic = rest.substr(0, rest.find(','));
        rows.push_back({static_cast<DWORD>(std::stoul(tag, nullptr, 16)), basic.ends_with("U*") ? 'U' : basic.back(),
                        rest.substr(basic.size() + 1, 10)});
    }
    return rows;
}

std::string ValueFor(const CDcmElement& element, int number)
{
    static const std::map<std::string, std::string> kForms = {
        {"DA", "20240115"}, {"DT", "20240115101112"}, {"TM", "101112"},   {"AS", "045Y"},
        {"DS", "12345 "},   {"IS", "12345 "},         {"CS", "ANYTHING"}, {"OB", "\1\2\3\4"},
        {"OW", "\1\2\3\4"}, {"US", "\1\2"},           {"UN", "\1\2\3\4"}};
    const std::string letters = element.VrLetters();
    const auto form = kForms.find(letters);
    return form != kForms.end() ? form->second : (letters == "UI" ? "1.2.3." : "Secret") + std::to_string(100 + number);
}

/// An element of a row with a value, or with two items.
CDcmElement* Make(DWORD tag, int number)
{
    auto element = std::make_unique<CDcmElement>(tag);
    if (Varnotix::Tag::IsPrivate(tag))
    {
        element = std::make_unique<CDcmElement>(Varnotix::Tag::Group(tag), Varnotix::Tag::Element(tag), VR_LO,
                                                &CDcmRegistry::UnlistedEntry(VR_LO));
    }
    if (CDcmElementSet* items = element->Items())
    {
        for (int item = 0; item < 2; ++item)
        {
            items->BeginItem();
            items->Add(Make(kManufacturer, number));
        }
        return element.release();
    }
    const std::string value = ValueFor(*element, number);
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(value.data()), static_cast<int>(value.size()));
    element->SetRawBytes(bytes);
    return element.release();
}

std::string BytesOf(const CDcmElement& element)
{
    std::string bytes(element.ValueBytes().View());
    while (!bytes.empty() && (bytes.back() == ' ' || bytes.back() == '\0'))
    {
        bytes.pop_back();
    }
    return bytes;
}

class DeidentifyTable : public ToolTest
{
protected:
    /// An object with an attribute for each row, at the top and in an item.
    void WriteAll()
    {
        CDcmIOD object;
        object.StreamRules(STREAM_RULES_STANDARD);
        object.FileFormat(true);
        object.IodSyntax(kExplicitUid.c_str());
        CDcmElementSet& store = object.ElementStore();
        auto syntax = std::make_unique<CDcmElement>(0x00020010);
        syntax->AddText(kExplicitUid.c_str());
        store.Add(syntax.release());
        auto items = std::make_unique<CDcmElement>(kItems);
        items->Items()->BeginItem();
        int number = 0;
        for (CDcmElementSet* set : {&store, items->Items()})
        {
            set->Add(Make(0x00090010, ++number)); // The creator of the private row.
            for (const SRow& row : m_table)
            {
                // Group 4 would make it a DICOMDIR, groups 0 and 2 no data set.
                if (Varnotix::Tag::Group(row.tag) > 4 || set != &store)
                {
                    set->Add(Make(row.tag, ++number));
                }
            }
        }
        store.Add(items.release());
        CFile file("in.dcm", CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store);
        object.Serialize(archive);
        archive.Close();
        file.Close();
        ReadByStandard("in.dcm", m_before);
    }

    /// Compares the attributes of the rows in two sets.
    /// @param column of the option; -1 for the basic profile.
    void Compare(const CDcmElementSet& before, const CDcmElementSet& after, int column)
    {
        for (const SRow& row : m_table)
        {
            const CDcmElement* old = before.Find(row.tag);
            if (old == nullptr)
            {
                continue;
            }
            const char option = column < 0 ? '-' : row.options[static_cast<std::size_t>(column)];
            SCOPED_TRACE(testing::Message() << std::hex << row.tag << " option " << std::dec << column);
            ++m_checks;
            CheckRow(row, option == '-' ? row.basic : option, *old, after.Find(row.tag));
        }
    }

    static void CheckRow(const SRow& row, char action, const CDcmElement& old, const CDcmElement* found)
    {
        const std::string vr = old.VrLetters();
        const bool isSequence = old.Items() != nullptr;
        const bool isCleanable = vr != "OB" || (row.tag >> 24U) == 0x60 || (row.tag >> 24U) == 0x50;
        action = action == 'C' && !isCleanable ? row.basic : action; // Bytes can only be cleaned away.
        if (action == 'X')
        {
            EXPECT_EQ(found, nullptr);
            return;
        }
        ASSERT_NE(found, nullptr);
        const std::string value = BytesOf(*found);
        const CDcmElement* nested = isSequence ? found->Items()->FindInItem(1, 0x0008, 0x0070) : nullptr;
        switch (action)
        {
        case 'Z':
            EXPECT_EQ(isSequence ? std::to_string(found->Items()->ItemCount()) : value, isSequence ? "0" : "");
            break;
        case 'D':
            EXPECT_NE(isSequence ? BytesOf(*nested) : value + "-", isSequence ? "" : BytesOf(old) + "-");
            EXPECT_EQ(isSequence && (found->Items()->ItemCount() != 1 || BytesOf(*nested) != "ANONYMIZED"), false);
            EXPECT_FALSE(found->ValueBytes().View().empty() && !isSequence);
            break;
        case 'U':
            EXPECT_TRUE(isSequence ? found->Items()->ItemCount() == 2 : value.starts_with("2.25."));
            break;
        case 'C':
            EXPECT_EQ(value == BytesOf(old), vr != "DA" && vr != "DT");
            EXPECT_EQ(value.size(), BytesOf(old).size());
            EXPECT_EQ(isSequence && found->Items()->ItemCount() != 2, false);
            break;
        default:
            EXPECT_EQ(action, 'K');
            EXPECT_EQ(value, BytesOf(old));
            EXPECT_EQ(isSequence && found->Items()->ItemCount() != 2, false);
        }
    }

    const std::vector<SRow> m_table = Table();
    CDcmIOD m_before;
    int m_checks = 0;
};

} // namespace

TEST_F(DeidentifyTable, EveryActionOfEveryOptionIsTaken)
{
    InitDicomDLL();
    ASSERT_EQ(m_table.size(), 621U);
    WriteAll();
    const CDcmElement* creator = m_before.ElementStore().Find(kItems)->Items()->Find(0x00090010);
    ASSERT_NE(creator, nullptr);
    Write("safe.txt", "# ours\n(0009,\"Secret101\",01)\n\n(0009,\"" + BytesOf(*creator) + "\",01)\n");
    const char* const options[] = {"",
                                   "--retain-safe-private safe.txt",
                                   "--retain-uids",
                                   "--retain-device",
                                   "--retain-institution",
                                   "--retain-patient-characteristics",
                                   "--retain-dates full",
                                   "--retain-dates modified",
                                   "--clean-descriptors",
                                   "--clean-structured-content",
                                   "--clean-graphics"};
    for (int column = -1; column < 10; ++column)
    {
        const std::string option = options[column + 1];
        SCOPED_TRACE(option);
        std::filesystem::remove_all("out");
        const SRun run = Run("deidentify in.dcm -o out --key key.txt " + option);
        EXPECT_TRUE(run.status == 0 || run.status == 10) << run.err; // Some options leave texts to a person.
        std::string output;
        for (const auto& entry : std::filesystem::recursive_directory_iterator("out"))
        {
            output = entry.is_regular_file() ? entry.path().string() : output;
        }
        CDcmIOD after;
        ReadByStandard(output, after);
        const CDcmElementSet& top = after.ElementStore();
        // The name at the top is the new identity, which the profile allows.
        EXPECT_TRUE(BytesOf(*top.Find(kName)).starts_with("P-"));
        const_cast<CDcmElement*>(top.Find(kName))->SetTexts(CStringArray());
        Compare(m_before.ElementStore(), top, column);
        Compare(*m_before.ElementStore().Find(kItems)->Items(), *top.Find(kItems)->Items(), column);
    }
    EXPECT_GT(m_checks, 13000);
}
