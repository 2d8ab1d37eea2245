// What the rows of the catalogue's classes say, checked against the dictionary, and what their accessors do.

#include "Values.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>

namespace
{

/// The lines of the page that describes the catalogue.
std::set<std::string> PageLines()
{
    const char* data = std::getenv("VARNOTIX_DATA");
    std::ifstream page(std::filesystem::path(data != nullptr ? data : ".").parent_path() / "docs" / "catalogue.md");
    std::set<std::string> lines;
    for (std::string line; std::getline(page, line);)
    {
        lines.insert(line);
    }
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

/// True when the accessor bears its attribute's name, or when docs/catalogue.md says that it means this tag.
bool IsNamedForItsAttribute(const std::string& className, const SAttributeRow& row, const CString& attribute)
{
    const std::string attributeName(attribute.View());
    const std::string name = Keyword(row.name);
    for (const std::string& text : {attributeName, attributeName.substr(0, attributeName.find(" ("))})
    {
        const std::string keyword = Keyword(text);
        if (keyword == name || keyword == name + "sequence" || keyword == name + "codesequence")
        {
            return true;
        }
    }
    std::string group(row.group);
    if (group.starts_with("50") || group.starts_with("60"))
    {
        group.replace(2, 2, "xx");
    }
    static const std::set<std::string> lines = PageLines();
    const std::string start = "| `" + className + "` | `" + row.name + "` | (" + group + "," + row.element + ") ";
    const auto found = lines.lower_bound(start);
    return found != lines.end() && found->starts_with(start);
}

/// True when the element's VR holds values of the accessor's type.
bool Holds(CDcmElement& element, const std::string& type)
{
    if (type == "CString" || type == "CStringArray")
    {
        return element.Texts() != nullptr;
    }
    if (type == "WORD" || type == "CWordArray")
    {
        return element.Words() != nullptr;
    }
    if (type == "DWORD" || type == "CUIntArray")
    {
        // The accessors of attribute tags cannot hold them; see docs/catalogue.md.
        return element.Integers() != nullptr || element.Vr() == VR_AT;
    }
    if (type == "double" || type == "CDoubleArray")
    {
        return element.Doubles() != nullptr;
    }
    return (type == "CFloatArray" && element.Floats() != nullptr) ||
           (type == "CByteArray" && element.Bytes() != nullptr) || type.empty();
}

/// Checks the rows of a fresh object against its elements.
void CheckRows(CDcmAttributeSet& object, const std::vector<SAttributeRow>& rows)
{
    const std::string className = object.GetRuntimeClass()->m_lpszClassName;
    CDcmElementSet& set = object.GetDcmElementSet();
    EXPECT_TRUE(set.IsEmptyOfValues());
    for (int i = 0; i < set.GetCount(); ++i)
    {
        EXPECT_TRUE(set.GetAt(i)->HasEntry()) << set.GetAt(i)->GroupText().CText();
        EXPECT_TRUE(i == 0 || set.GetAt(i - 1)->Tag() < set.GetAt(i)->Tag());
    }
    int position = 0;
    for (const SAttributeRow& row : rows)
    {
        SCOPED_TRACE(className + ": " + row.name + " (" + row.group + "," + row.element + ")");
        if (row.kind == ERow::Macro)
        {
            EXPECT_TRUE(row.member->GetDcmElementSet().SharesBodyWith(set));
            continue;
        }
        CDcmElement* element = set.Find(row.group, row.element);
        ASSERT_NE(element, nullptr);
        EXPECT_TRUE(*row.name == '\0' || IsNamedForItsAttribute(className, row, element->Name()))
            << element->Name().CText();
        if (row.kind == ERow::Attribute)
        {
            EXPECT_TRUE(Holds(*element, row.type)) << row.type << " for " << element->VrName().CText();
            EXPECT_EQ(set.FindDeclared(position), element);
            position += 2;
        }
        else
        {
            ASSERT_NE(element->Items(), nullptr);
            EXPECT_TRUE(row.member->GetDcmElementSet().SharesBodyWith(*element->Items()));
        }
    }
}

} // namespace

TEST(Catalogue, HasRowsThatFitTheDictionary)
{
    const std::vector<CRuntimeClass*> ownClasses = CRuntimeClass::Classes();
    const CDynLinkLibrary library;
    int classes = 0;
    for (CRuntimeClass* record : CRuntimeClass::Classes())
    {
        const bool isOwn = std::find(ownClasses.begin(), ownClasses.end(), record) != ownClasses.end();
        const std::unique_ptr<CObject> object(isOwn ? nullptr : record->CreateObject());
        auto* set = dynamic_cast<CDcmAttributeSet*>(object.get());
        const std::vector<SAttributeRow> rows = set != nullptr ? set->AttributeRows() : std::vector<SAttributeRow>();
        if (!rows.empty())
        {
            CheckRows(*set, rows);
            ++classes;
        }
    }
    EXPECT_EQ(classes, 106) << "the catalogue and the file meta information";
}

TEST(Accessors, OfEachKindReturnWhatWasSetAndReadAgain)
{
    CDcmPatientIdentificationModule patient;
    patient.PatientName("Doe^Jane");
    patient.IssuerOfPatient(Texts({"first", "last"}));
    patient.OtherPatientID(Texts({"1", "34"}));
    patient = ReadBack(patient);
    EXPECT_EQ(Filled(patient), "00100010 PN Doe^Jane; 00100021 LO last; 00101000 LO 1\\34");
    EXPECT_STREQ(patient.PatientName(), "Doe^Jane");
    EXPECT_STREQ(patient.IssuerOfPatientID(), "last");
    EXPECT_TRUE(patient.OtherPatientID() == Texts({"1", "34"}));

    CDcmPalleteColorLookUpModule palette;
    palette.BluePaletteData(Words({0xFEDC, 2}));
    palette = ReadBack(palette);
    EXPECT_EQ(Filled(palette), "00281203 OW 65244 2");
    EXPECT_TRUE(palette.BlueTableData() == Words({0xFEDC, 2}));

    CDcmImagePixelModule image;
    image.Columns(0xFEDC);
    image = ReadBack(image);
    EXPECT_EQ(Filled(image), "00280011 US 65244");
    EXPECT_EQ(image.Columns(), 0xFEDC);

    CDcmUSRegionCalibrationModule calibration;
    CDcmUSRegionSequence& region = calibration.UltraSoundRegions();
    region.RegionLocationMin_x0(0x89ABCDEF);
    region.PhysicalDeltaX(-2.5);
    region.TableOfXBreakPoints(ArrayOf<CUIntArray, UINT>({0x89ABCDEF, 2}));
    region.TableOfYBreakPoints(ArrayOf<CDoubleArray, double>({-2.5, 0.5}));
    region.TableOfParameterValues(ArrayOf<CFloatArray, float>({-2.5F, 0.5F}));
    calibration = ReadBack(calibration);
    EXPECT_EQ(Filled(calibration), "00186011 SQ {00186018 UL 2309737967; 0018602c FD -2.5; 00186052 UL 2309737967 2; "
                                   "00186054 FD -2.5 0.5; 0018605a FL -2.5 0.5}");
    EXPECT_EQ(region.RegionLocationMin_x0(), 0x89ABCDEF);
    EXPECT_EQ(region.PhysicalDeltaX(), -2.5);
    EXPECT_TRUE(region.TableOfXBreakPoints() == (ArrayOf<CUIntArray, UINT>({0x89ABCDEF, 2})));
    EXPECT_TRUE(region.TableOfYBreakPoints() == (ArrayOf<CDoubleArray, double>({-2.5, 0.5})));
    EXPECT_TRUE(region.TableOfParameterValues() == (ArrayOf<CFloatArray, float>({-2.5F, 0.5F})));

    CDcmSOPCommonModule common;
    common.DigitalSignatures().CertificateOfSigner(ArrayOf<CByteArray, BYTE>({0, 0xFF}));
    common = ReadBack(common);
    EXPECT_EQ(Filled(common), "fffafffa SQ {04000115 OB 00FF}");
    EXPECT_TRUE(common.DigitalSignatures().CertificateOfSigner() == (ArrayOf<CByteArray, BYTE>({0, 0xFF})));

    CDcmTimeSlotSequence slot;
    slot.TimeSlotTime("12");
    EXPECT_EQ(Filled(slot), "00540073 DS 12");
}
