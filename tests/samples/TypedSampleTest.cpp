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

/// Every sample that can be read, read plainly and into its concrete class.
template <class CHECK>
void ForEachTypedSample(const CHECK& check)
{
    ForEachSample(
        [&check](CDcmIOD& plain, const std::string& name)
        {
            const std::unique_ptr<CDcmCompositeIOD> typed = ObjectFor(plain);
            typed->Import(FileBytes(SampleFolder() + "/" + name));
            check(plain, *typed);
        });
}

} // namespace

TEST(SampleTyped, WritingThroughModulesChangesNoValue)
{
    SKIP_WITHOUT_SAMPLES();
    ForEachTypedSample(
        [](CDcmIOD& plain, CDcmCompositeIOD& typed)
        {
            CByteArray plainBytes;
            plain.ExportFileFormat(plainBytes);
            CByteArray typedBytes;
            typed.ExportFileFormat(typedBytes);
            EXPECT_EQ(ValuesOf(typed.ElementStore()), ValuesOf(plain.ElementStore()));
            CDcmIOD plainAgain;
            plainAgain.Import(plainBytes);
            CDcmIOD typedAgain;
            typedAgain.Import(typedBytes);
            EXPECT_EQ(ValuesOf(typedAgain.ElementStore()), ValuesOf(plainAgain.ElementStore()));
            EXPECT_EQ(typedAgain.GetCount(), plainAgain.GetCount());
        });
}

/// The getter of an attribute reads the element of the module, which the accessor tests of the catalogue hold to.
TEST(SampleTyped, ModulesShowWhatTheFileHolds)
{
    SKIP_WITHOUT_SAMPLES();
    int shown = 0;
    ForEachTypedSample(
        [&shown](CDcmIOD& plain, CDcmCompositeIOD& typed)
        {
            for (int i = 0; i < typed.ModuleCount(); ++i)
            {
                SCOPED_TRACE(typed.ModuleAt(i).GetRuntimeClass()->m_lpszClassName);
                const CDcmElementSet& module = typed.ModuleAt(i).GetDcmElementSet();
                const Lines values = ValuesOf(module);
                for (const auto& [place, value] : ValuesOf(plain.ElementStore()))
                {
                    const CDcmElement* element = module.Find(CString(place.substr(0, 4)), CString(place.substr(4, 4)));
                    const CDcmElement* stored = element != nullptr ? plain.ElementStore().Find(*element) : nullptr;
                    // An element of another VR than the stream's takes no value; docs/catalogue.md lists those.
                    if (stored != nullptr && (stored->HasVr(element->Vr()) || stored->IsPixelData()))
                    {
                        const auto found = values.find(place);
                        EXPECT_EQ(found != values.end() ? found->second : "nothing", value) << place;
                        ++shown;
                    }
                }
            }
        });
    EXPECT_GT(shown, 1000);
}
