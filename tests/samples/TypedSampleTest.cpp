#include "Sample.h"
#include "Varnotix/iod/ImageIODs.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

/// The concrete class for an object's SOP class; a generic composite object for any other.
std::unique_ptr<CDcmCompositeIOD> ObjectFor(const CDcmIOD& plain)
{
    const CDcmElement* sopClass = plain.ElementStore().Find(0x0008, 0x0016);
    const std::string uid(sopClass != nullptr ? sopClass->JoinedText().CText() : "");
    const std::string storage = "1.2.840.10008.5.1.4.1.1.";
    const std::string kind = uid.substr(0, storage.size()) == storage ? uid.substr(storage.size()) : "";
    const std::map<std::string, const CRuntimeClass*> classes = {
        {"1", RUNTIME_CLASS(CCRImageIOD)},  {"2", RUNTIME_CLASS(CCTImageIOD)},
        {"4", RUNTIME_CLASS(CMRImageIOD)},  {"6.1", RUNTIME_CLASS(CUSImageIOD)},
        {"20", RUNTIME_CLASS(CNMImageIOD)}, {"3.1", RUNTIME_CLASS(CUSMultiFrameImageIOD)},
        {"7", RUNTIME_CLASS(CSCImageIOD)}};
    const auto found = classes.find(kind);
    const CRuntimeClass* known = found != classes.end()   ? found->second
                                 : kind.starts_with("7.") ? RUNTIME_CLASS(CSCMultiFrameImageIOD)
                                                          : RUNTIME_CLASS(CDcmCompositeIOD);
    return std::unique_ptr<CDcmCompositeIOD>(static_cast<CDcmCompositeIOD*>(known->CreateObject()));
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
    for (const std::string& name : SampleNames())
    {
        SCOPED_TRACE(name);
        const CByteArray bytes(FileBytes(SampleFolder() + "/" + name));
        CDcmIOD plain;
        plain.Import(bytes);
        if (plain.GetCount() == 0)
        {
            continue;
        }
        const std::unique_ptr<CDcmCompositeIOD> typed = ObjectFor(plain);
        typed->Import(bytes);
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
    }
}
