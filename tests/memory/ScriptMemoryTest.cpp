// Memory that runs out while a text document is read back.

#include "Starvation.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/platform/Archive.h"

#include <memory>

namespace
{

constexpr const char* kPath = "starved.asl";

constexpr const char* kLines[] = {
    "0008,0060,CS,1,Modality,[CT,]",
    "0008,1140,SQ,1,Referenced Image Sequence,[2]",
    "#SEQUENCE_BEGIN",
    "   0008,1150,UI,1,Referenced SOP Class UID,[1.2.840.10008.5.1.4.1.1.2,]",
    "   0008,1155,UI,1,Referenced SOP Instance UID,[1.2.3,]",
    "#SEQUENCE_END",
    "0010,0010,PN,1,Patient's Name,[DOE^JANE WITH A NAME THAT NEEDS MEMORY,]",
    "0020,0037,DS,6,Image Orientation (Patient),[1,0,0,0,1,0,]",
    "0028,0010,US,1,Rows,[512,]",
    "a line that is none",
};

std::string ImportedText(CDcmIOD& object)
{
    object.ImportFromASL(kPath);
    CStringArray lines;
    object.Export(lines);
    std::string text;
    for (const CString& line : lines)
    {
        text += std::string(line.View()) + '\n';
    }
    return text;
}

} // namespace

using StarvedScript = Starved;

TEST_F(StarvedScript, ImportsAgain)
{
    {
        CFile file(kPath, CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store);
        for (const char* line : kLines)
        {
            archive.WriteString(line);
            archive.WriteString("\n");
        }
    }
    CDcmIOD whole;
    const std::string text = ImportedText(whole);
    EXPECT_EQ(whole.GetCountAll(), 7) << text;
    AtEveryRequest([] { return std::make_unique<CDcmIOD>(); },
                   [](const std::unique_ptr<CDcmIOD>& object) { object->ImportFromASL(kPath); },
                   [&text](const std::unique_ptr<CDcmIOD>& object) { EXPECT_EQ(ImportedText(*object), text); });
}
