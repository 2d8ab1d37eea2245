#include "commands/Commands.h"
#include "files/Input.h"
#include "files/OutputFolder.h"
#include "object/Attributes.h"
#include "picture/FrameExport.h"
#include "picture/PngWriter.h"
#include "rewrite/CheckedWrite.h"
#include "rewrite/FileMeta.h"
#include "run/InputRun.h"

#include <algorithm>
#include <memory>

namespace
{

constexpr const char* kFooter =
    "The frames of a single FILE are frame-0001 and so on; those of several are named by their SOP Instance UID.\n"
    "--name chooses other names: {uid}, {series}, {study}, {number}, {file} and {frame} are replaced. The extension "
    "is\n"
    "jpg, j2k or jls for what these decoders read, and bin for the rest. Uncompressed samples of 16 bits are in\n"
    "little endian, whatever the file has. No frame replaces that of another object of the run.\n"
    "Pictures (--png) are drawn of uncompressed, RLE, JPEG, JPEG-LS and JPEG 2000 frames. Grayscale is shown through\n"
    "the first window, or the first VOI LUT, or over the range of the values in the frame. Standard error reports\n"
    "what cannot be drawn.";

struct SFramesOptions
{
    SInputs inputs;
    CString output;
    CString name;
    CString frame;
    CString window;
    CString depth = "8";
    bool asPictures = false;
    bool withOverlays = false;
};

/// @return empty, or what is wrong with the text.
CString ReadWindowChoice(const CString& text, SWindowChoice& choice)
{
    using EKind = SWindowChoice::EKind;
    if (text.IsEmpty() || text == "range" || text == "lut")
    {
        choice.kind = text.IsEmpty() ? EKind::Object : text == "range" ? EKind::Range : EKind::Table;
        return CString();
    }
    const int comma = text.Find(',');
    const std::optional<double> center = DecimalNumber(comma < 0 ? text : text.Left(comma));
    const std::optional<double> width = comma < 0 ? std::nullopt : DecimalNumber(text.Mid(comma + 1));
    if (!center.has_value() || !width.has_value() || *width <= 0)
    {
        return "--window: '" + text + "' is neither CENTER,WIDTH nor 'range' nor 'lut'";
    }
    choice = {EKind::Given, *center, *width};
    return CString();
}

bool HasManyInputs(const SFramesOptions& options)
{
    return options.inputs.names.size() > 1 || options.inputs.entersFolders;
}

/// Whether the output is a file, as a name such as "head.png" asks for.
bool IsOneFile(const SFramesOptions& options)
{
    CString end = options.output.Right(4);
    end.MakeLower();
    return options.output == "-" || (options.asPictures && end == ".png" && !IsFolderPath(options.output));
}

/// @return empty, or what is wrong with the command line.
CString ReadOptions(const SFramesOptions& options, SFrameExport& wanted)
{
    constexpr int kHighestWord = 65535;
    const int frame = options.frame.IsEmpty() ? 0 : WholeNumber(options.frame).value_or(-1);
    if (frame < 0 || (frame == 0 && !options.frame.IsEmpty()))
    {
        return "--frame: '" + options.frame + "' is not a number of a frame; the first is 1";
    }
    if (!options.asPictures && (options.withOverlays || !options.window.IsEmpty() || options.depth != "8"))
    {
        return "--overlays, --window and --depth are for pictures, and need --png";
    }
    if (options.asPictures && !HasPngWriter())
    {
        return "this build has no PNG writer; without --png frames are written as stored";
    }
    wanted.output = options.output;
    wanted.toFile = IsOneFile(options);
    if (wanted.toFile && HasManyInputs(options))
    {
        return "-o: " + (options.output == "-" ? CString("standard output") : "the file '" + options.output + "'") +
               " takes one frame of a single FILE";
    }
    wanted.asPictures = options.asPictures;
    wanted.withOverlays = options.withOverlays;
    wanted.frame = static_cast<std::size_t>(frame);
    wanted.showsProgress = !HasManyInputs(options);
    wanted.style.highest = options.depth == "16" ? kHighestWord : wanted.style.highest;
    return ReadWindowChoice(options.window, wanted.style.window);
}

int FramesOf(const SJob& job, const SFrameExport& wanted, const CFrameNames& names, CTakenNames& taken)
{
    const CString& path = job.input.path;
    CDcmIOD object;
    SReadStop stop;
    if (!ReadObjectPart(path, object, stop, job.report))
    {
        return STATUS_UNREADABLE;
    }
    if (!stop.IsEmpty() && object.ElementStore().Find(Varnotix::Tag::kPixelData) == nullptr)
    {
        return ReportStop(path, stop, job.report);
    }
    const auto write = [&]
    {
        const SObjectForm form = FormOf(object);
        const int status = ExportFrames({object, path, ShownName(path), form.transferSyntax, form.compressed}, wanted,
                                        names, taken, job.report);
        return std::max(status, ReportStop(path, stop, job.report));
    };
    return ReportWriteFailures(wanted.output, job.report, write);
}

int Frames(const SFramesOptions& options, const CReport& report)
{
    SFrameExport wanted;
    CString reason = ReadOptions(options, wanted);
    CString pattern = options.name;
    if (pattern.IsEmpty())
    {
        pattern = HasManyInputs(options) ? "{uid}-{frame}" : "frame-{frame}";
    }
    const CFrameNames names(pattern);
    if (reason.IsEmpty() && !names.Refusal().IsEmpty())
    {
        reason = "--name: '" + pattern + "': " + names.Refusal();
    }
    if (!reason.IsEmpty())
    {
        report.Error(reason);
        return STATUS_USAGE;
    }
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    CTakenNames taken;
    return RunInputs(options.inputs, report, "could not be written whole",
                     [&](const SJob& job) { return FramesOf(job, wanted, names, taken); });
}

} // namespace

void AddFrames(CCommandLine& line)
{
    const auto options = std::make_shared<SFramesOptions>();
    CVerb verb = line.AddVerb("frames", "Write each frame of the pixel data to a file", kFooter);
    verb.Inputs(options->inputs, "Files to read; '-' is standard input");
    verb.Text("-o,--output", options->output,
              "Output folder, created if missing; for one frame '-', standard output, and with --png a file NAME.png");
    verb.Text("--name", options->name, "Names of the files, without extension: '{series}/{uid}-{frame}'",
              CVerb::ENeed::Optional);
    verb.Text("--frame", options->frame, "Write this frame only; the first is 1", CVerb::ENeed::Optional);
    verb.Flag("--png", options->asPictures, "Write PNG pictures instead of the stored frames");
    verb.Text("--window", options->window,
              "Show gray through this window, CENTER,WIDTH; 'range': over the range of the values; 'lut': through the "
              "first VOI LUT",
              CVerb::ENeed::Optional);
    verb.Flag("--overlays", options->withOverlays, "Draw overlays into the pictures");
    verb.Choice("--depth", options->depth, {"8", "16"}, "Bits per channel of the pictures", CVerb::ENeed::Optional);
    verb.MessageFlags();
    verb.Action(options, Frames);
}
