#include "ToolRunner.h"

#include <utility>

using namespace std::string_literals;

class Set : public ToolTest
{
protected:
    static std::string Reference(const std::string& uid) { return Item(Explicit(0x00081155, "UI", PaddedUid(uid))); }

    /// An object with a sequence of two items, a private block, and an image.
    static std::string DataSet(const std::string& name, const std::string& references, const std::string& rest = "")
    {
        return Explicit(0x00080005, "CS", "ISO_IR 100") + Explicit(0x00080018, "UI", PaddedUid("1.2.3.4")) +
               Explicit(0x00080020, "DA", "20260101") + Explicit(0x00081140, "SQ", references) +
               Explicit(0x00091000 - 0xFF0, "LO", "ACME") + Explicit(0x00091001, "FD", "12345678") +
               Explicit(0x00100010, "PN", name) + Us(0x00280010, 1) + Us(0x00280011, 1) + Us(0x00280100, 8) +
               Explicit(0x00280106, "SS", "ab") + rest + Explicit(0x7FE00010, "OW", "xy");
    }

    static std::string File(const std::string& dataSet) { return Part10(kExplicitUid, dataSet); }
};

TEST_F(Set, ChangesOnlyWhatItNames)
{
    const auto with = [](const std::string& name, const std::string& references)
    { return File(DataSet(name, references)); };
    const std::string two = Reference("1.1") + Reference("1.2");
    const std::string original = with("Doe^Jane", two);
    const std::pair<const char*, std::string> edits[] = {
        {"PatientName=Roe^Jim", with("Roe^Jim ", two)},
        {"0010,0010=", with("", two)},
        {"'PatientName=J\xC3\xB6rg^M'", with("J\xF6rg^M", two)},
        {"'ReferencedImageSequence[2].ReferencedSOPInstanceUID=1.9'",
         with("Doe^Jane", Reference("1.1") + Reference("1.9"))},
        {"'(0008,1140)[].(0008,1155)=1.9'", with("Doe^Jane", Reference("1.9") + Reference("1.9"))},
        {"'ReferencedImageSequence[+].ReferencedSOPInstanceUID=1.9'", with("Doe^Jane", two + Reference("1.9"))},
        {"'ReferencedImageSequence[+]='", with("Doe^Jane", two + Item(""))},
        {"-d 'ReferencedImageSequence[1]'", with("Doe^Jane", Reference("1.2"))},
        {"-d 'ReferencedImageSequence[].00081155'", with("Doe^Jane", Item("") + Item(""))},
        {"'ReferencedImageSequence='", with("Doe^Jane", "")},
        {"'(0009,\"ACME\",01)=1.5'",
         [&]
         {
             std::string file = original;
             return file.replace(file.find("12345678"), 8, "\0\0\0\0\0\0\xF8\x3F"s);
         }()},
        {"SmallestImagePixelValue=-2",
         [&]
         {
             std::string file = original;
             return file.replace(file.find("ab"), 2, "\xFE\xFF");
         }()},
        {"0028,1055=text", File(DataSet("Doe^Jane", two, Explicit(0x00281055, "LO", "text")))},
    };
    for (const auto& [edit, expected] : edits)
    {
        Write("in.dcm", original);
        Expect(0, "set in.dcm "s + edit);
        EXPECT_EQ(Read("in.dcm"), expected) << edit;
    }
    EXPECT_EQ(CountTemporaries(), 0);

    // Private attributes and groups, at every depth.
    const std::string creator = Explicit(0x00090010, "LO", "ACME");
    const std::string block = creator + Explicit(0x00091001, "FD", "12345678");
    const std::string reference = Explicit(0x00081155, "UI", PaddedUid("1.1"));
    std::string without = with("Doe^Jane", Item(reference));
    without.erase(without.find(block), block.size());
    for (const char* deletion : {"-d private", "-d 0009"})
    {
        Write("in.dcm", with("Doe^Jane", Item(reference + block)));
        Expect(0, "set in.dcm "s + deletion, "4 deleted");
        EXPECT_EQ(Read("in.dcm"), without) << deletion;
    }
}

TEST_F(Set, RefusesWhatWouldNotBeAValueOrNotFit)
{
    Write("in.dcm", File(DataSet("Doe^Jane", Reference("1.1"))));
    const std::pair<const char*, const char*> refused[] = {
        {"StudyDate=20260230", "not a date"},
        {"StudyDate=2026.01.01", "not a date"},
        {"StudyTime=2460", "not a time"},
        {"AcquisitionDateTime=20260101+1500", "not a date and time"},
        {"PatientAge=30Y", "not an age"},
        {"PatientSex=m", "capital letters"},
        {"PatientWeight=1,5", "not a decimal number"},
        {"PatientWeight=12345678901234567", "17 bytes are more than 16"},
        {"InstanceNumber=2147483648", "out of range"},
        {"StudyInstanceUID=1.02.3", "a component begins with 0"},
        {"AccessionNumber=12345678901234567", "17 characters are more than 16"},
        {"PatientName=a^b^c^d^e^f", "6 components"},
        {"'PixelSpacing=1'", "1 value, where the multiplicity is 2"},
        {"'PatientID=a\\b'", "2 values, where the multiplicity is 1"},
        {"SmallestImagePixelValue=40000", "-32768 to 32767"},
        {"'PatientName=\xE5\xBC\xB5'", "ISO_IR 100; 'SpecificCharacterSet=ISO_IR 192' before this edit"},
        {"SpecificCharacterSet=LATIN", "there is no character set LATIN"},
        {"'ReferencedImageSequence[4].ReferencedSOPInstanceUID=1.2'", "has 1 item"},
        {"ReferencedImageSequence=x", "it is a sequence"},
        {"'PatientID[1].PatientName=x'", "not a sequence"},
        {"0009,1002=x", "give its VR"},
        {"IssuerOfPatientID:PN=x", "it has VR LO in the dictionary"},
        {"Rows=7", "describes the pixel data"},
        {"PixelData=x", "not set from text"},
        {"-d PixelData", "nothing of the image"},
        {"-d 0028", "Rows: it describes the pixel data"},
        {"-d 0002", "TransferSyntaxUID: it says how the file is encoded"},
        {"-d SOPInstanceUID", "every object must have it"},
        {"-d 0009,0010", "the block that it reserves"},
        {"TransferSyntaxUID=1.2.840.10008.1.2", "convert"},
        {"0008,0000=4", "the write computes it"},
    };
    for (const auto& [edit, reason] : refused)
    {
        Expect(20, "set in.dcm PatientID=changed -o out.dcm "s + edit, reason);
        EXPECT_FALSE(std::filesystem::exists("out.dcm")) << edit;
    }
    for (const char* wrong : {"set in.dcm", "set PatientID=1", "set in.dcm PatientNam=1", "set in.dcm -d Nothing"})
    {
        Expect(1, wrong);
    }
    Expect(1, "set in.dcm -o \"\" PatientID=1", "--output: the name is empty");
    Expect(40, "convert in.dcm \"\"", "an output without a name");
    Expect(0, "set in.dcm --force StudyDate=20260230 Rows=7 -o out.dcm");
    EXPECT_TRUE(Holds(Read("out.dcm"), "20260230"));
}

TEST_F(Set, KeepsTheObjectInOnePiece)
{
    const std::string meta =
        Explicit(0x00020003, "UI", PaddedUid("1.2.3.4")) + Explicit(0x00020010, "UI", PaddedUid(kExplicitUid));
    const std::string start =
        std::string(128, '\0') + "DICM" + Explicit(0x00020000, "UL", LittleEndian(meta.size(), 4));
    const std::string original = start + meta + DataSet("J\xF6rg^May", Reference("1.1"));
    Write("in.dcm", original);
    Expect(0,
           "set --backup in.dcm SOPInstanceUID=1.2.3.9 'SpecificCharacterSet=ISO_IR 192' '(0009,\"OTHER\",01):LO=a'");
    EXPECT_EQ(TextsOf("in.dcm", {0x00020003, 0x00080018, 0x00100010, 0x00090011, 0x00091101}),
              "[1.2.3.9][1.2.3.9][J\xC3\xB6rg^May][OTHER][a]");
    EXPECT_EQ(Read("in.dcm.bak"), original);
    Expect(0, "set --backup in.dcm PatientID=1");
    EXPECT_TRUE(std::filesystem::exists("in.dcm.bak2"));

    // A folder is without its backups, but not without a file that only has such a name.
    Write("other.bak", original);
    const std::string first = Read("in.dcm.bak");
    Expect(0, "set -r -j 3 . PatientID=2", "./in.dcm: 1 value changed", "./other.bak: 0 values changed, 1 attribute");
    EXPECT_EQ(Read("in.dcm.bak"), first);

    // Meta information that names another instance stays, until the instance is set.
    std::string mixed = original;
    mixed[mixed.find("1.2.3.4")] = '2';
    Write("in.dcm", mixed);
    Expect(0, "set in.dcm PatientID=1", "differs from the data set: 2.2.3.4, 1.2.3.4");
    EXPECT_EQ(TextsOf("in.dcm", {0x00020003}), "[2.2.3.4]");
    Expect(0, "set in.dcm SOPInstanceUID=1.2.3.4", "1 value changed");
    EXPECT_EQ(TextsOf("in.dcm", {0x00020003}), "[1.2.3.4]");

    // With --force the name of the character set is corrected, and the texts stay.
    Write("in.dcm", original);
    Expect(0, "set --force in.dcm 'SpecificCharacterSet=ISO_IR 192'");
    EXPECT_EQ(TextsOf("in.dcm", {0x00100010}), "[J\xF6rg^May]");
}
