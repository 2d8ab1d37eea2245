#include "picture/FrameExport.h"

#include "Varnotix/platform/FileSearch.h"
#include "console/Progress.h"
#include "files/OutputFile.h"
#include "files/OutputFolder.h"
#include "picture/FrameDecoder.h"
#include "picture/FrameSource.h"
#include "picture/Overlays.h"
#include "picture/PngWriter.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace
{

const char* ExtensionOf(EFrameCoding coding)
{
    switch (coding)
    {
    case EFrameCoding::Jpeg:
        return ".jpg";
    case EFrameCoding::JpegLs:
        return ".jls";
    case EFrameCoding::Jpeg2000:
        return ".j2k";
    default:
        return ".bin";
    }
}

CString FrameText(const char* format, std::size_t number)
{
    CString text;
    text.Format(format, static_cast<unsigned long>(number));
    return text;
}

class CFrameExporter
{
public:
    CFrameExporter(const SFrameObject& source, const SFrameExport& wanted, const CFrameNames& names, CTakenNames& taken,
                   const CReport& report)
        : m_source(source),
          m_wanted(wanted),
          m_names(names),
          m_taken(taken),
          m_report(report),
          m_extension(wanted.asPictures ? ".png" : ExtensionOf(FrameCodingOf(source.transferSyntax, source.compressed)))
    {
    }

    int Run();

private:
    bool PreparePictures(const SImageHeader& header);
    int WriteAll(const CFrameSource& frames);
    int WriteOne(const CFrameSource& frames, std::size_t index);
    CString Draw(CByteArray& frame, std::size_t index, std::vector<BYTE>& file) const;
    CString FindPath(std::size_t index, CString& path) const;
    int Save(std::size_t index, const void* bytes, std::size_t size);
    void ReportLeftovers(std::size_t count) const;
    int Refuse(const CString& reason) const;

    const SFrameObject& m_source;
    const SFrameExport& m_wanted;
    const CFrameNames& m_names;
    CTakenNames& m_taken;
    const CReport& m_report;
    CString m_extension;
    std::unique_ptr<CFrameDecoder> m_decoder; // Null: frames are written as stored.
    std::unique_ptr<CPainter> m_painter;
    std::unique_ptr<COverlays> m_overlays;
};

/// True for Float or Double Float Pixel Data.
bool HasFloats(const CDcmElementSet& store)
{
    return store.Find(0x7FE00008) != nullptr || store.Find(0x7FE00009) != nullptr;
}

int CFrameExporter::Refuse(const CString& reason) const
{
    m_report.Error(m_source.name + ": " + reason);
    return STATUS_UNREADABLE;
}

int CFrameExporter::Run()
{
    const CDcmElement* element = m_source.object.ElementStore().Find(Varnotix::Tag::kPixelData);
    const CDcmFrameList* stored = element != nullptr ? element->Frames() : nullptr;
    if (stored == nullptr || stored->GetCount() == 0)
    {
        return Refuse(HasFloats(m_source.object.ElementStore())
                          ? "its pixel data is of floating-point numbers, which are not supported"
                          : "it has no pixel data");
    }
    const SImageHeader header = ReadImageHeader(m_source.object);
    const CFrameSource frames(*stored, header, m_source.compressed, m_source.name, m_report);
    if (m_wanted.asPictures && !PreparePictures(header))
    {
        return STATUS_UNREADABLE;
    }
    if (frames.Count() == 0)
    {
        return Refuse("it has no complete frame");
    }
    if (m_wanted.frame > frames.Count())
    {
        return Refuse(FrameText("it has no frame %lu", m_wanted.frame) + FrameText("; it has %lu", frames.Count()));
    }
    if (m_wanted.toFile && m_wanted.frame == 0 && frames.Count() > 1)
    {
        return Refuse(
            FrameText("it has %lu frames, and a single output takes one: choose it with --frame", frames.Count()));
    }
    constexpr std::size_t kNoFrame = static_cast<std::size_t>(-1); // Its number is 0.
    CString path;
    const bool isNamed = !m_wanted.toFile && FindPath(kNoFrame, path).IsEmpty();
    const CString other = isNamed ? m_taken.TakeAll(path, m_source.name) : CString();
    if (!other.IsEmpty())
    {
        m_report.Error(m_source.name + ": not written: its frames have the names of those of " + other +
                       "; --name chooses other names");
        return STATUS_UNWRITTEN;
    }
    return WriteAll(frames);
}

bool CFrameExporter::PreparePictures(const SImageHeader& header)
{
    m_decoder =
        std::make_unique<CFrameDecoder>(m_source.transferSyntax, m_source.compressed, header, m_source.name, m_report);
    const CDcmElementSet& store = m_source.object.ElementStore();
    CString refusal = m_decoder->Refusal();
    if (refusal.IsEmpty())
    {
        m_painter =
            std::make_unique<CPainter>(store, m_decoder->DecodedHeader(), m_wanted.style, m_source.name, m_report);
        refusal = m_painter->Refusal();
    }
    if (!refusal.IsEmpty())
    {
        m_report.Error(m_source.name + ": no picture is drawn: " + refusal);
        m_report.ErrorLine("Without --png its frames are written as stored.");
        return false;
    }
    if (m_wanted.withOverlays)
    {
        m_overlays = std::make_unique<COverlays>(store, m_decoder->DecodedHeader(), m_source.name, m_report);
    }
    return true;
}

int CFrameExporter::WriteAll(const CFrameSource& frames)
{
    if (m_wanted.frame > 0)
    {
        return WriteOne(frames, m_wanted.frame - 1);
    }
    CProgress progress(m_wanted.showsProgress ? frames.Count() : 1, m_report);
    int status = STATUS_DONE;
    for (std::size_t i = 0; i < frames.Count(); ++i)
    {
        progress.Step(i);
        status = std::max(status, WriteOne(frames, i));
    }
    ReportLeftovers(frames.Count());
    return status;
}

int CFrameExporter::WriteOne(const CFrameSource& frames, std::size_t index)
{
    CByteArray frame = frames.Frame(index);
    if (m_decoder == nullptr)
    {
        return Save(index, frame.GetData(), static_cast<std::size_t>(frame.GetSize()));
    }
    std::vector<BYTE> file;
    const CString reason = Draw(frame, index, file);
    if (!reason.IsEmpty())
    {
        m_report.Error(m_source.name + FrameText(": frame %lu is not drawn: ", index + 1) + reason);
        return STATUS_UNREADABLE;
    }
    return Save(index, file.data(), file.size());
}

/// @return empty, or why the frame cannot be drawn.
CString CFrameExporter::Draw(CByteArray& frame, std::size_t index, std::vector<BYTE>& file) const
{
    CString reason = m_decoder->Decode(frame);
    if (!reason.IsEmpty())
    {
        return reason;
    }
    const int number = static_cast<int>(index);
    SPicture picture;
    reason = m_painter->Paint(frame, number, picture);
    if (reason.IsEmpty() && m_overlays != nullptr)
    {
        m_overlays->Paint(number, frame, picture);
    }
    return reason.IsEmpty() ? EncodePng(picture, file) : reason;
}

CString CFrameExporter::FindPath(std::size_t index, CString& path) const
{
    CString name;
    const CString reason = m_names.Make(m_source.object.ElementStore(), m_source.input, index + 1, name);
    path = Varnotix::JoinPath(m_wanted.output, name + m_extension);
    return reason;
}

int CFrameExporter::Save(std::size_t index, const void* bytes, std::size_t size)
{
    CString path = m_wanted.output;
    if (!m_wanted.toFile)
    {
        const CString reason = FindPath(index, path);
        const CString owner = m_source.name + FrameText(", frame %lu", index + 1);
        const CString other = reason.IsEmpty() ? m_taken.Take(path, owner) : CString();
        if (!reason.IsEmpty() || !other.IsEmpty())
        {
            m_report.Error(owner + ": not written: " +
                           (reason.IsEmpty() ? path + " holds " + other + "; --name chooses other names" : reason));
            return STATUS_UNWRITTEN;
        }
        const CString fault = MakeFolder(FolderNameOf(path));
        if (!fault.IsEmpty())
        {
            throw CWriteFailure(std::string(fault.View()));
        }
    }
    COutputFile target(path);
    target.File().Write(bytes, static_cast<UINT>(size));
    target.Commit();
    if (path != "-")
    {
        m_report.Detail(m_source.name + ": written to " + path);
    }
    return STATUS_DONE;
}

/// Frames of another object that an earlier run wrote would pass for the next frames of this one.
void CFrameExporter::ReportLeftovers(std::size_t count) const
{
    CString path;
    if (!m_wanted.toFile && m_names.HasFrame() && FindPath(count, path).IsEmpty() &&
        std::filesystem::exists(path.CText()))
    {
        m_report.Say(m_source.name + ": " + path + " and those after it are not of this object");
    }
}

} // namespace

int ExportFrames(const SFrameObject& source, const SFrameExport& wanted, const CFrameNames& names, CTakenNames& taken,
                 const CReport& report)
{
    return CFrameExporter(source, wanted, names, taken, report).Run();
}
