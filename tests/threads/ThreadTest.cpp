// Distinct objects on distinct threads. Each task gives a text of its results; what eight threads get at the same time
// must be what one gets. The stage "tsan" of scripts/test.sh runs these tests under the thread sanitizer.
#include "Elements.h"
#include "Programs.h"
#include "RleFrames.h"
#include "StreamBytes.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <array>
#include <barrier>
#include <functional>
#include <thread>

namespace
{

constexpr int kThreads = 8;
constexpr int kRounds = 20;

/// Runs the function on all threads at once, each with its number.
void OnAllThreads(const std::function<void(int)>& work)
{
    std::barrier start(kThreads);
    std::vector<std::jthread> threads;
    for (int number = 0; number < kThreads; ++number)
    {
        threads.emplace_back(
            [&, number]
            {
                start.arrive_and_wait();
                work(number);
            });
    }
}

std::string TextOf(const CByteArray& bytes)
{
    return {reinterpret_cast<const char*>(bytes.GetData()), static_cast<std::size_t>(bytes.GetSize())};
}

/// An ultrasound image with an overlay, a sequence, private tags of the given group and run length encoded pixels.
CByteArray ImageBytes(int privateGroup)
{
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    CByteArray pixels = Counting(0, 64);
    CDcmImagePixelModule image = Image(8, 8, 8, "MONOCHROME2");
    image.DcmRleEncode(pixels);
    auto pixelData = std::make_unique<CDcmElement>(0x7FE0, 0x0010, VR_OB);
    pixelData->Frames()->AddFrame(pixels);
    auto creator = std::make_unique<CDcmElement>(privateGroup, 0x0010, VR_LO, &CDcmRegistry::UnlistedEntry(VR_LO));
    creator->AddText("THREADS");
    auto number = std::make_unique<CDcmElement>(privateGroup, 0x1001, VR_US, &CDcmRegistry::UnlistedEntry(VR_US));
    number->AddWord(static_cast<WORD>(privateGroup));
    Fill(object.ElementStore(),
         {MakeText(0x0002, 0x0010, "1.2.840.10008.1.2.5"),
          MakeText(0x0008, 0x0005, "ISO_IR 100"),
          MakeText(0x0008, 0x0016, "1.2.840.10008.5.1.4.1.1.6.1"),
          MakeText(0x0008, 0x0018, ("1.2." + std::to_string(privateGroup)).c_str()),
          MakeSequence(0x0008, 0x1140, {MakeText(0x0008, 0x1150, "1.2"), MakeText(0x0008, 0x1155, "1.2.4")}),
          MakeText(0x0010, 0x0010,
                   "D\xD6"
                   "E^JANE"),
          MakeText(0x0010, 0x0020, "ID-1"),
          creator.release(),
          number.release(),
          MakeWord(0x0028, 0x0002, 1),
          MakeText(0x0028, 0x0004, "MONOCHROME2"),
          MakeWord(0x0028, 0x0010, 8),
          MakeWord(0x0028, 0x0011, 8),
          MakeWord(0x0028, 0x0100, 8),
          MakeWord(0x0028, 0x0101, 8),
          MakeWord(0x0028, 0x0102, 7),
          MakeWord(0x0028, 0x0103, 0),
          MakeWord(0x6000, 0x0010, 8),
          MakeWord(0x6000, 0x0011, 8),
          pixelData.release()});
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    return bytes;
}

std::string ReadEditWrite(const CByteArray& bytes, EStreamRules rules)
{
    CDcmIOD object;
    object.StreamRules(rules);
    object.Import(bytes);
    std::string result = Show(object.ElementStore());
    CDcmPatientModule patient;
    object >> patient;
    result += patient.PatientName().View();
    patient.PatientName("ROE^RICHARD");
    object << patient;
    CByteArray written;
    object.ExportFileFormat(written);
    return result + TextOf(written);
}

std::string UseAccessors(const CByteArray& bytes)
{
    CUSImageIOD typed;
    typed.Import(bytes);
    auto* image = static_cast<CDcmImagePixelModule*>(typed.FindModule(RUNTIME_CLASS(CDcmImagePixelModule)));
    auto* overlay = static_cast<CDcmOverLayPlaneModule*>(typed.FindModule(RUNTIME_CLASS(CDcmOverLayPlaneModule)));
    std::string result = std::to_string(image->Rows()) + std::string(image->PhotoMetricInterpretation().View());
    result += overlay != nullptr ? std::to_string(overlay->OverlayRows()) : "none";
    CObList frames;
    image->GetPixelData(frames);
    for (CObject* frame : frames)
    {
        CByteArray pixels;
        image->DcmRleDecode(static_cast<CByteArray&>(*frame), pixels);
        result += TextOf(pixels);
        image->DcmRleEncode(pixels);
        result += TextOf(pixels);
    }
    CDcmPatientModule missing;
    missing.GetDcmElementSet().RemoveAll();
    missing.PatientName() = "written to against the contract";
    result += missing.PatientName().View();
    CUSImageIOD copy(typed);
    CDcmPatientModule patient;
    copy >> patient;
    patient.PatientName("COPY");
    copy << patient;
    CByteArray written;
    copy.ExportFileFormat(written);
    return result + TextOf(written) + (typed == copy ? "equal" : "changed");
}

std::string Joined(const CStringArray& lines)
{
    std::string text;
    for (const CString& line : lines)
    {
        text += line.View();
    }
    return text;
}

std::string UseText(const CByteArray& bytes)
{
    CDcmCompositeIOD object;
    object.Import(bytes);
    CStringArray lines;
    object.Export(lines);
    lines.Add("0011,1002,LO,1,Private,[a text]");
    CDcmCompositeIOD made;
    made.CreateFromASL(lines);
    return Joined(lines) + Show(made.ElementStore());
}

std::string UseUnits()
{
    CDcmProtocolDataUnit request;
    request.PduType(Varnotix::PDU_ASSOCIATE_RQ);
    CStringArray syntaxes;
    syntaxes.Add(CDcmRegistry::Global().UidString(1));
    request.AddPresentationContext("1.2.840.10008.1.1", syntaxes, 1, 0);
    request.Create();
    CByteArray bytes;
    request.PduField(bytes);
    CDcmProtocolDataUnit read;
    read.Create(bytes);
    CStringArray lines;
    read.Export(lines);
    return TextOf(bytes) + Joined(lines);
}

std::string UseRegistry()
{
    CDcmRegistry registry;
    const CString& uid = registry.UidString(0);
    const CString& name = registry.PhotoMetricString(3);
    registry.AddPrivateEntry(0x0013, 0x1001, "DS", 1);
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CUSImageIOD"));
    return std::string(uid + name + registry.LookUpTag(0x0010, 0x0010)->name +
                       registry.LookUpTag(0x0013, 0x1001)->name + made->GetRuntimeClass()->m_lpszClassName);
}

} // namespace

TEST(Threads, GetWithDistinctObjectsWhatOneGets)
{
    InitDicomDLL();
    const CByteArray image = ImageBytes(0x0019);
    const std::array<std::function<std::string()>, 6> tasks = {
        [&] { return ReadEditWrite(image, STREAM_RULES_CLASSIC); },
        [&] { return ReadEditWrite(image, STREAM_RULES_STANDARD); },
        [&] { return UseAccessors(image); },
        [&] { return UseText(image); },
        [] { return UseUnits(); },
        [] { return UseRegistry(); }};
    // The threads come first, so that they meet tables and shapes that no thread has made yet.
    std::array<std::array<std::string, tasks.size()>, kThreads> results;
    for (int round = 0; round < kRounds; ++round)
    {
        OnAllThreads(
            [&](int number)
            {
                const auto first = static_cast<std::size_t>(number + round);
                for (std::size_t i = 0; i < tasks.size(); ++i)
                {
                    const std::size_t task = (first + i) % tasks.size();
                    results[static_cast<std::size_t>(number)][task] = tasks[task]();
                }
            });
        for (std::size_t task = 0; task < tasks.size(); ++task)
        {
            const std::string wanted = tasks[task]();
            for (const auto& result : results)
            {
                ASSERT_EQ(result[task], wanted) << task;
            }
        }
    }
}

TEST(Threads, MayForgetAndLearnPrivateTagsAtTheSameTime)
{
    std::vector<CByteArray> images;
    for (int number = 0; number < kThreads; ++number)
    {
        images.push_back(ImageBytes(0x0021 + number / 2 * 2)); // Two threads each learn the same tags.
    }
    for (int round = 0; round < kRounds; ++round)
    {
        OnAllThreads(
            [&](int number)
            {
                CDcmIOD object;
                object.Import(images[static_cast<std::size_t>(number)]);
                const CDcmElement* learned = object.ElementStore().Find(0x0021 + number / 2 * 2, 0x1001);
                ASSERT_NE(learned, nullptr);
                EXPECT_EQ(learned->Vr(), VR_US);
                if (number == round % kThreads)
                {
                    CDcmRegistry::Global().ForgetPrivateEntries();
                }
                EXPECT_STREQ(learned->Name(), "Private Data Element");
            });
        CDcmRegistry::Global().ForgetPrivateEntries();
    }
}

TEST(Threads, KeepPrivateAttributesThatOthersLearnAtTheSameTime)
{
    CStringArray lines;
    for (int element = 0x1001; element < 0x1040; ++element)
    {
        CString line;
        line.Format("0043,%04X,LO,1,Private,[a text]", static_cast<unsigned>(element));
        lines.Add(line);
    }
    for (int round = 0; round < kRounds; ++round)
    {
        OnAllThreads(
            [&](int)
            {
                CDcmCompositeIOD made;
                made.CreateFromASL(lines);
                EXPECT_EQ(made.ElementStore().GetCount(), lines.GetSize());
            });
        CDcmRegistry::Global().ForgetPrivateEntries();
    }
}

TEST(Threads, WriteWholeObjectsWhileOthersForgetPrivateTags)
{
    const CByteArray image = ImageBytes(0x0045);
    const auto rewritten = [&image]
    {
        CDcmIOD object;
        object.Import(image);
        object.GroupLengths(true);
        CByteArray bytes;
        object.ExportFileFormat(bytes);
        return TextOf(bytes);
    };
    const std::string wanted = rewritten();
    ASSERT_NE(wanted.find(std::string("\x45\0\0\0UL", 6)), std::string::npos);
    OnAllThreads(
        [&](int number)
        {
            for (int i = 0; i < 50 * kRounds; ++i)
            {
                if (number % 2 == 0)
                {
                    CDcmRegistry::Global().ForgetPrivateEntries();
                }
                else
                {
                    ASSERT_EQ(rewritten(), wanted);
                }
            }
        });
}

TEST(Threads, EachHoldACopyOfOneObject)
{
    const CByteArray image = ImageBytes(0x0019);
    for (int round = 0; round < kRounds; ++round)
    {
        auto object = std::make_unique<CDcmIOD>();
        object->Import(image);
        std::vector<std::unique_ptr<CDcmIOD>> copies;
        for (int number = 0; number < kThreads; ++number)
        {
            copies.push_back(std::make_unique<CDcmIOD>(*object));
        }
        OnAllThreads(
            [&](int number)
            {
                std::unique_ptr<CDcmIOD> copy = std::move(copies[static_cast<std::size_t>(number)]);
                if (number == 0)
                {
                    object.reset(); // The last views of the bytes that were read are those of the copies.
                }
                CDcmElementSet& store = copy->ElementStore();
                store.Find(0x0010, 0x0010)->AddText(CString(std::to_string(number)));
                (*store.Find(Varnotix::Tag::kPixelData)->Frames()->GetFrame(0)).Array()[0] = static_cast<BYTE>(number);
                CDcmIOD second(*copy);
                copy.reset();
                EXPECT_EQ(TextOf(second.ElementStore(), 0x0010, 0x0010), std::to_string(number));
                EXPECT_EQ(TextOf(second.ElementStore(), 0x0010, 0x0020), "ID-1");
                EXPECT_EQ(*second.ElementStore().Find(Varnotix::Tag::kPixelData)->Frames()->GetFrame(0)->Data(),
                          number);
            });
    }
}

TEST(Threads, OfTheToolWorkOnDistinctInputs)
{
    std::filesystem::create_directory("inputs");
    for (int number = 0; number < 4 * kThreads; ++number)
    {
        const std::string bytes = TextOf(ImageBytes(0x0061 + number * 2));
        std::ofstream("inputs/" + std::to_string(number) + ".dcm", std::ios::binary) << bytes;
    }
    std::ofstream("key") << std::string(64, 'A');
    for (const std::string verb : {"dump", "--classic dump", "dump --json", "list --jsonl -w PatientName~D.*E", "check",
                                   "modules", "convert -v -s explicit -o out", "anonymize -v --deep -o out",
                                   "deidentify -v --key key --accept-pixels -o out",
                                   "frames -v --png --name {file}-{frame} -o out", "set -v PatientID=7 -o out"})
    {
        std::filesystem::remove_all("out");
        const int status = StatusOf("varnotix", verb + " -j 1 -r inputs");
        const std::string output = ReadOutput();
        const std::string messages = ReadText("err.txt");
        ASSERT_LE(status, 10) << verb << messages;
        std::filesystem::remove_all("out");
        EXPECT_EQ(StatusOf("varnotix", verb + " -j 8 -r inputs"), status) << verb;
        EXPECT_EQ(ReadOutput(), output) << verb;
        EXPECT_EQ(ReadText("err.txt"), messages) << verb;
    }
}
