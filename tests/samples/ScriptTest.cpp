// Objects through their text form and back.
#include "Sample.h"
#include "Varnotix/asl/AslWriter.h"

namespace
{

/// How many elements did not come back as they were, by reason.
using Losses = std::map<std::string, int>;

/// Why text cannot bring the element back; empty when it can.
std::string Reason(const CDcmElement& element)
{
    if (element.IsPixelData())
    {
        return "Pixel Data";
    }
    if (element.HasVr(VR_OW) || element.HasVr(VR_FD))
    {
        return VrText(element.Vr());
    }
    if (element.HasVr(VR_OB) && element.Bytes()->GetSize() > 5000)
    {
        return "OB beyond 5000 bytes";
    }
    if (const CStringArray* texts = element.Texts();
        texts != nullptr && texts->GetSize() == 1 && (*texts)[0].CText().empty())
    {
        return "one empty text";
    }
    const std::string text(element.JoinedText().CText());
    if (text.find_first_of("\r\n") != std::string::npos)
    {
        return "text of several lines";
    }
    return text.find_first_of(",]") != std::string::npos ? "text with comma or bracket" : "";
}

void Compare(const CDcmElementSet& before, const CDcmElementSet& after, const std::string& place, Losses& losses)
{
    std::map<DWORD, int> counts;
    for (int i = 0; i < before.GetCount(); ++i)
    {
        ++counts[before.GetAt(i)->Tag()];
    }
    for (int i = 0; i < before.GetCount(); ++i)
    {
        const CDcmElement& was = *before.GetAt(i);
        const CDcmElement* is = after.Find(was);
        ASSERT_NE(is, nullptr) << place << AslElementLine(was);
        if (counts[was.Tag()] > 1)
        {
            losses["tag repeated in gathered items"] += 1;
        }
        else if (was.HasVr(VR_UN))
        {
            losses["UN"] += was.RawBytes().IsEmpty() ? 0 : 1;
        }
        else if (was.Items() != nullptr)
        {
            Compare(*was.Items(), *is->Items(), place + Text("%08X/", was.Tag()), losses);
        }
        else if (AslElementLine(was) != AslElementLine(*is))
        {
            const std::string reason = Reason(was);
            EXPECT_NE(reason, "") << place << AslElementLine(was) << " came back as " << AslElementLine(*is);
            losses[reason] += 1;
        }
    }
    EXPECT_EQ(after.GetCount(), static_cast<int>(counts.size())) << place;
}

} // namespace

TEST(SampleScript, LosesOnWritingAsTextAndReadingWhatTextCannotCarry)
{
    SKIP_WITHOUT_SAMPLES();
    Losses losses;
    ForEachSample(
        [&losses](CDcmIOD& object, const std::string& name)
        {
            object.Export(CString("sample.asl"));
            CDcmIOD back;
            back.ImportFromASL("sample.asl");
            Compare(object.ElementStore(), back.ElementStore(), name + " ", losses);
        });
    std::remove("sample.asl");
    EXPECT_EQ(losses, (Losses{{"FD", 33},
                              {"OB beyond 5000 bytes", 14},
                              {"OW", 9},
                              {"Pixel Data", 33},
                              {"one empty text", 4},
                              {"tag repeated in gathered items", 267},
                              {"text of several lines", 1},
                              {"text with comma or bracket", 1}}));
}
