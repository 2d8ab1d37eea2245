#include "Sample.h"
#include "Varnotix/iod/ImageIODs.h"

#include <memory>

namespace
{

template <class IOD>
std::unique_ptr<CDcmCompositeIOD> Make()
{
    return std::make_unique<IOD>();
}

/// The concrete class for an object's SOP class; a generic composite object for any other.
std::unique_ptr<CDcmCompositeIOD> ObjectFor(const CDcmIOD& plain)
{
    static const std::map<std::string, std::unique_ptr<CDcmCompositeIOD> (*)()> kinds = {
        {"1", Make<CCRImageIOD>},
        {"2", Make<CCTImageIOD>},
        {"4", Make<CMRImageIOD>},
        {"6.1", Make<CUSImageIOD>},
        {"3.1", Make<CUSMultiFrameImageIOD>},
        {"20", Make<CNMImageIOD>},
        {"7", Make<CSCImageIOD>},
        {"7.", Make<CSCMultiFrameImageIOD>}};
    const CDcmElement* sopClass = plain.ElementStore().Find(0x0008, 0x0016);
    const std::string uid(sopClass != nullptr ? sopClass->JoinedText().CText() : "");
    const std::string storage = "1.2.840.10008.5.1.4.1.1.";
    const std::string kind = uid.starts_with(storage) ? uid.substr(storage.size()) : "";
    const auto found = kinds.find(kind.starts_with("7.") ? "7." : kind);
    return found != kinds.end() ? found->second() : Make<CDcmCompositeIOD>();
}

/// The lines of elements with a value. Empty elements inside sequences are no part of a module's value.
Lines ValuesOf(const CDcmElementSet& set)
{
    Lines lines;
    AddLines(set, "", lines);
    std::erase_if(lines, [](const auto& line) { return line.second.size() <= 3; });
    return lines;
}

} // namespace

TEST(SampleTyped, WritingThroughModulesChangesNoValue)
{
    SKIP_WITHOUT_SAMPLES();
    ForEachSample(
        [](CDcmIOD& plain, const std::string& name)
        {
            const std::unique_ptr<CDcmCompositeIOD> typed = ObjectFor(plain);
            typed->Import(FileBytes((SampleFolder() / name).string()));
            CByteArray plainBytes;
            plain.ExportFileFormat(plainBytes);
            CByteArray typedBytes;
            typed->ExportFileFormat(typedBytes);
            EXPECT_EQ(ValuesOf(typed->ElementStore()), ValuesOf(plain.ElementStore()));
            CDcmIOD plainAgain;
            plainAgain.Import(plainBytes);
            CDcmIOD typedAgain;
            typedAgain.Import(typedBytes);
            EXPECT_EQ(ValuesOf(typedAgain.ElementStore()), ValuesOf(plainAgain.ElementStore()));
            EXPECT_EQ(typedAgain.GetCount(), plainAgain.GetCount());
        });
}
