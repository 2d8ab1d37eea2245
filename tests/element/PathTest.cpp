// Paths to elements, keywords, private blocks, and walks over a whole object.

#include "Varnotix/element/ElementWalk.h"
#include "Varnotix/element/PrivateBlock.h"
#include "Varnotix/registry/Keyword.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace Varnotix;

namespace
{

CDcmElement* AddText(CDcmElementSet& set, DWORD tag, int vr, const char* text)
{
    auto element = std::make_unique<CDcmElement>(Tag::Group(tag), Tag::Element(tag), vr);
    const std::string_view bytes(text);
    element->SetRawBytes(CSharedBytes::Copy(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size()));
    set.Add(element.get());
    return element.release();
}

/// Patient ID; two requests of which the second has a step ID and an empty third item follows; a private block that
/// ACME reserved at 11 in the object and at 10 in the second request.
void MakeObject(CDcmElementSet& set)
{
    AddText(set, 0x00090010, VR_LO, "OTHER ");
    AddText(set, 0x00090011, VR_LO, "ACME");
    AddText(set, 0x00091101, VR_LO, "outer");
    AddText(set, 0x00100020, VR_LO, "P1");
    auto* requests = new CDcmElement(0x0040, 0x0275);
    set.Add(requests);
    CDcmElementSet& items = *requests->Items();
    items.BeginItem();
    AddText(items, 0x00400007, VR_LO, "first");
    items.BeginItem();
    AddText(items, 0x00090010, VR_LO, "ACME");
    AddText(items, 0x00091001, VR_LO, "inner");
    AddText(items, 0x00400009, VR_SH, "S2");
    items.BeginItem();
}

std::string Found(CDcmElementSet& set, const char* text)
{
    std::string found;
    const std::optional<CElementPath> path = CElementPath::Parse(text);
    if (!path)
    {
        return "no path";
    }
    for (const SFoundElement& place : path->FindAll(set))
    {
        const CDcmElementSet* items = place.element->Items();
        found += std::string(place.path.Text().View()) + "=" +
                 (items != nullptr ? "SQ" : std::string(place.element->ValueBytes().View())) + " ";
    }
    const CDcmElement* first = path->Find(set);
    EXPECT_EQ(first != nullptr, !found.empty()) << text;
    return found;
}

} // namespace

TEST(Paths, AreReadInEachFormAndWrittenInOne)
{
    const std::pair<const char*, const char*> cases[] = {
        {"PatientName", "PatientName"},
        {"patientname", "PatientName"},
        {"0010,0010", "PatientName"},
        {" ( 0010 , 0010 ) ", "PatientName"},
        {"00100010", "PatientName"},
        {"6002,0010", "OverlayRows"},
        {"0009,1001", "(0009,1001)"},
        {"(0009,\"A.C\"\"M]E\",0f)", "(0009,\"A.C\"\"M]E\",0F)"},
        {"0040,0275[2].(0040,0009)", "RequestAttributesSequence[2].ScheduledProcedureStepID"},
        {"RequestAttributesSequence[].0040,0009", "RequestAttributesSequence[].ScheduledProcedureStepID"},
        {"RequestAttributesSequence[+]", "RequestAttributesSequence[+]"},
    };
    for (const auto& [text, written] : cases)
    {
        const std::optional<CElementPath> path = CElementPath::Parse(text);
        EXPECT_EQ(path ? std::string(path->Text().View()) : "no path", written) << text;
    }
    for (const char* text : {"",
                             ".",
                             "NoSuchName",
                             "PatientName.",
                             ".PatientName",
                             "PatientName[0]",
                             "PatientName[-1]",
                             "PatientName[1",
                             "PatientName[99999999999]",
                             "PatientName[1]x",
                             "0010",
                             "0010,",
                             "0010,001",
                             "0010,00100",
                             "(0010,0010",
                             "(0009,\"ACME,01)",
                             "(0008,\"ACME\",01)",
                             "(0009,\"\",01)",
                             "(0009,\"ACME\",1001)",
                             "PatientName PatientID"})
    {
        EXPECT_FALSE(CElementPath::Parse(text)) << text;
    }
}

TEST(Paths, FindElementsOfItemsAndOfPrivateBlocks)
{
    CDcmElementSet set;
    MakeObject(set);
    const std::pair<const char*, const char*> cases[] = {
        {"PatientID", "PatientID=P1 "},
        {"PatientName", ""},
        {"PatientID[1]", ""},
        {"RequestAttributesSequence", "RequestAttributesSequence=SQ "},
        {"RequestAttributesSequence[3]", "RequestAttributesSequence[3]=SQ "},
        {"RequestAttributesSequence[4]", ""},
        {"RequestAttributesSequence[+]", ""},
        {"RequestAttributesSequence.ScheduledProcedureStepDescription",
         "RequestAttributesSequence[1].ScheduledProcedureStepDescription=first "},
        {"RequestAttributesSequence.ScheduledProcedureStepID", ""},
        {"RequestAttributesSequence[].ScheduledProcedureStepID",
         "RequestAttributesSequence[2].ScheduledProcedureStepID=S2 "},
        {"(0009,\"ACME\",01)", "(0009,1101)=outer "},
        {"RequestAttributesSequence[2].(0009,\"ACME\",01)", "RequestAttributesSequence[2].(0009,1001)=inner "},
        {"(0009,\"OTHER\",01)", ""},
    };
    for (const auto& [text, found] : cases)
    {
        EXPECT_EQ(Found(set, text), found) << text;
    }
    EXPECT_EQ(PrivateCreatorOf(set, 0, 0x00091101), "ACME");
    EXPECT_EQ(PrivateCreatorOf(set, 0, 0x00091201), "");
    EXPECT_EQ(PrivateCreatorOf(set, 0, 0x00090010), "");
}

TEST(Walks, VisitEveryDepthAndRemove)
{
    CDcmElementSet set;
    MakeObject(set);
    std::string visited;
    const auto remove = [&visited](const SWalkPlace& place)
    {
        visited += std::string(place.path.Text().View()) + " ";
        return place.element.Group() % 2 != 0 ? EWalk::Remove : EWalk::Enter;
    };
    EXPECT_TRUE(WalkElements(set, remove));
    EXPECT_EQ(visited, "(0009,0010) (0009,0011) (0009,1101) PatientID RequestAttributesSequence "
                       "RequestAttributesSequence[1].ScheduledProcedureStepDescription "
                       "RequestAttributesSequence[2].(0009,0010) RequestAttributesSequence[2].(0009,1001) "
                       "RequestAttributesSequence[2].ScheduledProcedureStepID ");
    EXPECT_EQ(set.GetCountAll(), 4);
    EXPECT_EQ(set.Find(0x0040, 0x0275)->Items()->ItemCount(), 3);

    int visits = 0;
    EXPECT_FALSE(WalkElements(set, [&visits](const SWalkPlace&) { return ++visits < 3 ? EWalk::Enter : EWalk::Stop; }));
    EXPECT_EQ(visits, 3);
}

TEST(Keywords, AreThoseOfTheDictionary)
{
    const std::pair<DWORD, const char*> cases[] = {
        {0x00100010, "PatientName"},
        {0x00081048, "PhysiciansOfRecord"},
        {0x00181318, "dBdt"},
        {0x00686430, "TwoDMatingFeatureCoordinatesSequence"},
        {0x60000010, "OverlayRows"},
        {0x00080119, "LongCodeValue"},
        {0x00120063, "DeidentificationMethod"},
    };
    for (const auto& [tag, keyword] : cases)
    {
        EXPECT_EQ(KeywordOf(tag), keyword);
        EXPECT_EQ(TagOfKeyword(keyword), tag) << keyword;
    }
    EXPECT_EQ(KeywordOf(0x00100000), "");
    EXPECT_EQ(KeywordOf(0x00091001), "");
    EXPECT_FALSE(TagOfKeyword(""));
    EXPECT_FALSE(TagOfKeyword("GroupLength"));
}
