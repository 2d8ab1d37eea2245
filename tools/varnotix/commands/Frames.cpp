#include "Varnotix/platform/FileSearch.h"
#include "commands/Commands.h"
#include "console/Progress.h"
#include "files/Input.h"
#include "files/OutputFolder.h"
#include "picture/FrameSource.h"
#include "picture/PngWriter.h"
#include "picture/RleFrame.h"
#include "rewrite/CheckedWrite.h"
#include "rewrite/FileMeta.h"

#include <algorithm>
#include <memory>

namespace
{

constexpr const char* kFooter =
    "The files are frame-0001 and so on, with the extension jpg, j2k or jls for what these decoders read, and bin\n"
    "for the rest. Uncompressed samples of more than one byte are in little endian, whatever the file has.\n"
    "Pictures (--png) have eight bits per channel. Grayscale is shown through the first window, or over the range of\n"
    "the values in the frame; MONOCHROME1, RGB, YBR_FULL, YBR_FULL_422 and PALETTE COLOR are understood,\n"
    "uncompressed or run length encoded. Overlays are not drawn. Standard error reports what cannot be drawn.";

struct SFramesOptions
{
    CString input;
    CString folder;
    bool asPictures = false;
};

const char* ExtensionOf(int uidRow)
{
    using namespace Varnotix;
    if (uidRow >= UID_JPEG_BASELINE && uidRow <= UID_JPEG_LOSSLESS_FIRST_ORDER)
    {
        return "jpg";
    }
    if (uidRow == UID_JPEG_LS_LOSSLESS || uidRow == UID_JPEG_LS_NEAR_LOSSLESS)
    {
        return "jls";
    }
    const bool isJpeg2000 = uidRow >= UID_JPEG_2000_LOSSLESS && uidRow <= UID_JPEG_2000_PART2;
    return isJpeg2000 || (uidRow >= UID_HTJ2K_LOSSLESS && uidRow <= UID_HTJ2K) ? "j2k" : "bin";
}

/// Writes the frames of one object.
class CFrameWriter
{
public:
    CFrameWriter(const CString& name, const CString& folder, const CReport& report)
        : m_name(name), m_folder(folder), m_report(report)
    {
    }

    int WriteAll(const CDcmIOD& object, bool asPictures);

private:
    bool WriteOne(const CFrameSource& source, std::size_t index) const;
    void Save(const CString& fileName, const void* bytes, std::size_t size) const;

    CString m_name;
    CString m_folder;
    const CReport& m_report;
    SImageHeader m_header;
    const CPainter* m_painter = nullptr; // Null: frames are written as stored.
    bool m_isRle = false;
    CString m_extension;
};

int CFrameWriter::WriteAll(const CDcmIOD& object, bool asPictures)
{
    const CDcmElement* element = object.ElementStore().Find(Varnotix::Tag::kPixelData);
    const CDcmFrameList* stored = element != nullptr ? element->Frames() : nullptr;
    if (stored == nullptr || stored->GetCount() == 0)
    {
        m_report.Error(m_name + ": it has no pixel data");
        return STATUS_UNREADABLE;
    }
    m_header = ReadImageHeader(object);
    const SObjectForm form = FormOf(object);
    const int row = CDcmRegistry::Global().UidEnum(form.transferSyntax);
    m_isRle = form.compressed && row == Varnotix::UID_RLE;
    m_extension = asPictures ? "png" : ExtensionOf(form.compressed ? row : 0);
    const CFrameSource source(*stored, m_header, form.compressed, m_name, m_report);
    if (m_isRle)
    {
        // A decoded frame has whole samples, pixel by pixel, regardless of the attributes (PS3.5 Annex G).
        m_header.byPlane = false;
        m_header.photometricNumber =
            m_header.photometricNumber == PHOTOMETRIC_YBR_FULL_422 ? PHOTOMETRIC_YBR_FULL : m_header.photometricNumber;
    }

    std::unique_ptr<CPainter> painter;
    if (asPictures)
    {
        if (form.compressed && !m_isRle)
        {
            m_report.Error(m_name + ": no picture is drawn: its pixel data is compressed (transfer syntax " +
                           form.transferSyntax + "), and only RLE is decompressed here");
            m_report.ErrorLine("Without --png its frames are written as stored.");
            return STATUS_UNREADABLE;
        }
        painter = std::make_unique<CPainter>(object.ElementStore(), m_header, m_name, m_report);
        if (!painter->Refusal().IsEmpty())
        {
            m_report.Error(m_name + ": no picture is drawn: " + painter->Refusal());
            return STATUS_UNREADABLE;
        }
    }
    m_painter = painter.get();
    if (source.Count() == 0)
    {
        m_report.Error(m_name + ": it has no complete frame");
        return STATUS_UNREADABLE;
    }

    MakeFolder(m_folder);
    CProgress progress(source.Count(), m_report);
    int status = STATUS_DONE;
    for (std::size_t i = 0; i < source.Count(); ++i)
    {
        progress.Step(i);
        status = WriteOne(source, i) ? status : STATUS_UNREADABLE;
    }
    return status;
}

bool CFrameWriter::WriteOne(const CFrameSource& source, std::size_t index) const
{
    CString fileName;
    fileName.Format("frame-%04lu.", static_cast<unsigned long>(index + 1));
    fileName += m_extension;
    CByteArray frame = source.Frame(index);
    if (m_painter == nullptr)
    {
        Save(fileName, frame.GetData(), static_cast<std::size_t>(frame.GetSize()));
        return true;
    }
    CString reason;
    if (m_isRle)
    {
        CByteArray pixels;
        reason = DecodeRleFrame(m_header, frame, pixels);
        frame.Swap(pixels);
    }
    SPicture picture;
    std::vector<BYTE> file;
    reason = reason.IsEmpty() ? m_painter->Paint(frame, picture) : reason;
    reason = reason.IsEmpty() ? EncodePng(picture, file) : reason;
    if (!reason.IsEmpty())
    {
        CString number;
        number.Format(": frame %lu is not drawn: ", static_cast<unsigned long>(index + 1));
        m_report.Error(m_name + number + reason);
        return false;
    }
    Save(fileName, file.data(), file.size());
    return true;
}

void CFrameWriter::Save(const CString& fileName, const void* bytes, std::size_t size) const
{
    const CString path = Varnotix::JoinPath(m_folder, fileName);
    COutputFile target(path);
    target.File().Write(bytes, static_cast<UINT>(size));
    target.Commit();
    m_report.Detail(m_name + ": written to " + path);
}

int Frames(const SFramesOptions& options, const CReport& report)
{
    if (options.asPictures && !HasPngWriter())
    {
        report.Error("this build has no PNG writer; without --png frames are written as stored");
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(options.input, object, stop, report))
    {
        return STATUS_UNREADABLE;
    }
    return ReportWriteFailures(
        options.folder, report,
        [&]
        {
            const int status =
                CFrameWriter(ShownName(options.input), options.folder, report).WriteAll(object, options.asPictures);
            return std::max(status, ReportStop(options.input, stop, report));
        });
}

} // namespace

void AddFrames(CCommandLine& line)
{
    const auto options = std::make_shared<SFramesOptions>();
    CVerb verb = line.AddVerb("frames", "Write each frame of the pixel data to a file", kFooter);
    verb.Text("FILE", options->input, "File to read; '-' is standard input");
    verb.Text("-o,--output", options->folder, "Output folder; created if missing");
    verb.Flag("--png", options->asPictures, "Write PNG pictures instead of the stored frames");
    verb.MessageFlags();
    verb.Action(options, Frames);
}
