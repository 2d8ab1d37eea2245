// The command line: verbs, arguments and help.

#include "Varnotix/Version.h"
#include "commands/Verbs.h"
#include "console/StandardStreams.h"
#include "pdu/PduVerb.h"
#include "script/ScriptKinds.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace
{

constexpr const char* kFooter =
    "Data goes to standard output, everything else to standard error.\n"
    "Exit status: 0 done, 1 wrong usage, 20 an input could not be read, 40 an output could not be written.\n"
    "The data dictionary is looked for in the current directory, in the folder that VARNOTIX_DATA names,\n"
    "beside the library and in the share folder.";

constexpr const char* kDumpFooter =
    "The first lines of a document, with '#' before them, tell the file, the syntax that "
    "it was read in and the number of elements.";

constexpr const char* kConvertFooter =
    "IN is a file with or without preamble and file meta information; OUT always gets both, and its Transfer "
    "Syntax\n"
    "UID (0002,0010) is set. OUT appears when it is complete; IN and OUT may be the same file.\n"
    "Compressed pixel data is not decompressed: 'explicit' keeps its transfer syntax, the others refuse it.\n"
    "In big endian, item lengths have a byte order of this library's own, which other readers may not know.\n"
    "A rewrite regroups the items of sequences, one element an item, drops values of VR UN and empty values in\n"
    "lists, and remakes group lengths. What the output no longer holds as IN did is told on standard error:\n"
    "in one summary line, or in one line an element with -v.";

constexpr const char* kAnonymizeFooter =
    "32 attributes take the text: names, identifiers and descriptions of patient, physicians, institution and\n"
    "device. Those that are missing are not added. UIDs, dates of the study and what the pixels show stay: this "
    "is\n"
    "no de-identification profile of PS3.15. What was found in an object and is not covered is told on standard\n"
    "error: the same attributes in sequence items, private groups, burned-in annotation. --deep covers the first\n"
    "two. The preamble of the file is cleared.";

constexpr const char* kFramesFooter =
    "The files are frame-0001 and so on, with the extension jpg, j2k or jls for what these decoders read, and bin\n"
    "for the rest. Uncompressed samples of more than one byte are in little endian, whatever the file has.\n"
    "Pictures (--png) have eight bits a channel. Grayscale is shown through the first window, or over the range "
    "of\n"
    "the values in the frame; MONOCHROME1, RGB, YBR_FULL, YBR_FULL_422 and PALETTE COLOR are understood,\n"
    "uncompressed or run length encoded. Overlays are not drawn. What cannot be drawn is told on standard error.";

constexpr const char* kModulesFooter =
    "The modules are those of the object that the SOP Class UID names: CT, MR, CR, nuclear medicine, ultrasound,\n"
    "secondary capture or patient information. Of any other object all attributes stand under 'attributes that no\n"
    "module declares'. The elements of all items of a sequence stand in one list, as a read gathers them.";

constexpr const char* kNewFooter = "One line an attribute, by entity and module. What such an object must have is "
                                   "open, the rest is commented out\n"
                                   "with ';'. Class, modality and UIDs are filled in.";

constexpr const char* kApplyFooter =
    "'varnotix dump FILE >SCRIPT', change values, 'varnotix apply SCRIPT FILE -o OUT'. Only lines that differ from "
    "what\n"
    "FILE itself prints are applied; all else stays, what the text does not carry included. A line for an "
    "attribute\n"
    "that FILE lacks adds it; '[]' empties a value; a line that is missing means nothing. Nothing is written when "
    "a\n"
    "line cannot be applied. OUT keeps the transfer syntax of FILE; OUT and FILE may be the same file.";

constexpr const char* kBuildFooter = "The script's lines are the attributes; its commands name the files that "
                                     "pixel data comes from, what to anonymise\n"
                                     "and what to remove. The file meta information is completed. Each line that "
                                     "is lost and each file that nothing is\n"
                                     "taken from is named with the reason; nothing is written then, unless --force "
                                     "is given. A script opens the files\n"
                                     "that it names, so trust it as you trust a program.";

constexpr const char* kPduFooter =
    "PDUs follow one another as on a connection. In text, white space, commas, colons and '0x' may stand between "
    "the\n"
    "pairs of digits, and '#' starts a comment. Bytes that no PDU can be made of are told on standard error, with\n"
    "their offset and status 20; what comes before them is printed.";

struct SArguments
{
    std::vector<std::string> files;
    std::string input;
    std::string output;
    std::string syntax;
    std::string kind;
    std::string script;
    std::string text = "ANONYMOUS";
    bool deep = false;
    bool force = false;
    bool asPictures = false;
    bool withGaps = false;
    bool showFields = false;
    bool quiet = false;
    bool verbose = false;
};

void AddMessageFlags(CLI::App& verb, SArguments& arguments)
{
    CLI::Option* quiet = verb.add_flag("-q,--quiet", arguments.quiet, "Print errors alone");
    verb.add_flag("-v,--verbose", arguments.verbose, "Print details")->excludes(quiet);
}

int SyntaxCode(const std::string& word)
{
    if (word == "implicit")
    {
        return SYNTAX_IMPLICIT_LITTLE;
    }
    return word == "big" ? SYNTAX_EXPLICIT_BIG : SYNTAX_EXPLICIT_LITTLE;
}

/// Help and version are data; complaints about the command line are not.
int PrintParseResult(const CLI::App& app, const CLI::ParseError& result)
{
    std::ostringstream out;
    std::ostringstream complaint;
    const int code = app.exit(result, out, complaint);
    if (code != 0)
    {
        CString text{std::string_view(complaint.view())};
        text.TrimRight();
        CReport(false, false).Error(text);
        return STATUS_USAGE;
    }
    WriteStandardOutput(out.view());
    FlushStandardOutput();
    return STATUS_DONE;
}

/// The arguments behind the program's name, last first, as the parser takes them. An option with an empty value
/// behind its "=" becomes two arguments: the parser would take the next one for its value.
std::vector<std::string> ReversedArguments(int count, char** texts)
{
    std::vector<std::string> reversed;
    for (int i = count - 1; i > 0; --i)
    {
        std::string text = texts[i];
        if (text.starts_with("--") && text.find('=') == text.size() - 1)
        {
            reversed.emplace_back();
            text.pop_back();
        }
        reversed.push_back(std::move(text));
    }
    return reversed;
}

int Run(int count, char** texts)
{
    SArguments arguments;
    CLI::App app("Reads and writes DICOM files.", "varnotix");
    app.set_version_flag("--version", std::string("varnotix ") + VARNOTIX_VERSION);
    app.require_subcommand(1);
    app.footer(kFooter);

    CLI::App* dump = app.add_subcommand("dump", "Print the text document of each file");
    dump->add_option("FILE", arguments.files, "Files to print; '-' is standard input")->required();
    dump->footer(kDumpFooter);
    AddMessageFlags(*dump, arguments);

    CLI::App* convert = app.add_subcommand("convert", "Rewrite a file in another transfer syntax");
    convert
        ->add_option("-s,--syntax", arguments.syntax,
                     "The syntax to write: implicit or explicit VR little endian, "
                     "or explicit VR big endian")
        ->required()
        ->check(CLI::IsMember({"implicit", "explicit", "big"}));
    convert->add_option("IN", arguments.input, "File to read; '-' is standard input")->required();
    convert->add_option("OUT", arguments.output, "File to write; '-' is standard output")->required();
    convert->footer(kConvertFooter);
    AddMessageFlags(*convert, arguments);

    CLI::App* anonymize = app.add_subcommand("anonymize", "Replace or remove what tells who the patient is");
    anonymize->add_option("FILE", arguments.files, "Files to read; '-' is standard input")->required();
    anonymize
        ->add_option("-o,--output", arguments.output,
                     "Folder to write to; for a single FILE also a file, or '-' for standard output")
        ->required();
    anonymize->add_option("--text", arguments.text, "Goes into the attributes; an empty text removes them")
        ->capture_default_str();
    anonymize->add_flag("--deep", arguments.deep,
                        "Reach into sequence items, drop private groups, and say so in the file");
    anonymize->footer(kAnonymizeFooter);
    AddMessageFlags(*anonymize, arguments);

    CLI::App* frames = app.add_subcommand("frames", "Write each frame of the pixel data to a file");
    frames->add_option("FILE", arguments.input, "File to read; '-' is standard input")->required();
    frames->add_option("-o,--output", arguments.output, "Folder to write to; it is made when it is missing")
        ->required();
    frames->add_flag("--png", arguments.asPictures, "Write pictures to look at instead of the frames as they lie");
    frames->footer(kFramesFooter);
    AddMessageFlags(*frames, arguments);

    CLI::App* modules = app.add_subcommand("modules", "Print a file by entity and module, with names and values");
    modules->add_option("FILE", arguments.input, "File to read; '-' is standard input")->required();
    modules->add_flag("--gaps", arguments.withGaps, "Also name the attributes that are absent");
    modules->footer(kModulesFooter);
    AddMessageFlags(*modules, arguments);

    CLI::App* newScript = app.add_subcommand("new", "Write a script to fill in and build");
    newScript->add_option("KIND", arguments.kind, "The kind of object")
        ->required()
        ->check(CLI::IsMember(ScriptKindWords()));
    newScript->add_option("-o,--output", arguments.output, "Script to write; without it, standard output");
    newScript->footer(kNewFooter);

    CLI::App* build = app.add_subcommand("build", "Make an object from a script");
    build->add_option("SCRIPT", arguments.script, "Script to read; '-' is standard input")->required();
    build->add_option("-o,--output", arguments.output,
                      "File to write; '-' is standard output. Without it, the script's TARGET_FILE");
    build->add_option("-s,--syntax", arguments.syntax, "The syntax to write; without it, what the script says")
        ->check(CLI::IsMember({"implicit", "explicit", "big"}));
    build->add_flag("--force", arguments.force, "Write what there is when lines or files are lost");
    build->footer(kBuildFooter);
    AddMessageFlags(*build, arguments);

    CLI::App* apply = app.add_subcommand("apply", "Change the values of a file that differ in a script");
    apply->add_option("SCRIPT", arguments.script, "Script to read; '-' is standard input")->required();
    apply->add_option("FILE", arguments.input, "File to read; '-' is standard input")->required();
    apply->add_option("-o,--output", arguments.output, "File to write; '-' is standard output")->required();
    apply->footer(kApplyFooter);
    AddMessageFlags(*apply, arguments);

    CLI::App* pdu = app.add_subcommand("pdu", "Print what association PDUs hold");
    pdu->add_option("FILE", arguments.input,
                    "PDUs as bytes or in hexadecimal digits; '-', or no file, is standard input");
    pdu->add_flag("--fields", arguments.showFields, "Print each field with its offset and its bytes");
    pdu->footer(kPduFooter);

    CLI::App* where = app.add_subcommand("where", "Print which data files were loaded, and from where");

    try
    {
        app.parse(ReversedArguments(count, texts));
    }
    catch (const CLI::RequiredError& result)
    {
        // Of a word that is no verb the parser tells only that the verb is missing.
        const std::vector<std::string> unknown = app.remaining();
        return unknown.empty() ? PrintParseResult(app, result)
                               : PrintParseResult(app, CLI::ExtrasError("", {unknown.front()}));
    }
    catch (const CLI::ParseError& result)
    {
        return PrintParseResult(app, result);
    }

    const CReport report(arguments.quiet, arguments.verbose);
    if (where->parsed())
    {
        return Where(report);
    }
    if (newScript->parsed())
    {
        return New(arguments.kind,
                   arguments.output.empty() ? CString("-") : CString(std::string_view(arguments.output)), report);
    }
    if (build->parsed())
    {
        const int syntax = arguments.syntax.empty() ? SYNTAX_UNKNOWN : SyntaxCode(arguments.syntax);
        return Build(CString(std::string_view(arguments.script)),
                     {CString(std::string_view(arguments.output)), syntax, arguments.force}, report);
    }
    if (apply->parsed())
    {
        return Apply(CString(std::string_view(arguments.script)), CString(std::string_view(arguments.input)),
                     CString(std::string_view(arguments.output)), report);
    }
    if (pdu->parsed())
    {
        return ShowPdus(arguments.input.empty() ? CString("-") : CString(std::string_view(arguments.input)),
                        arguments.showFields, report);
    }
    if (dump->parsed())
    {
        return Dump(arguments.files, report);
    }
    if (modules->parsed())
    {
        return Modules(CString(std::string_view(arguments.input)), arguments.withGaps, report);
    }
    if (anonymize->parsed())
    {
        return Anonymize(arguments.files, CString(std::string_view(arguments.output)),
                         {CString(std::string_view(arguments.text)), arguments.deep}, report);
    }
    if (frames->parsed())
    {
        return Frames(CString(std::string_view(arguments.input)), CString(std::string_view(arguments.output)),
                      arguments.asPictures, report);
    }
    return Convert(CString(std::string_view(arguments.input)), CString(std::string_view(arguments.output)),
                   SyntaxCode(arguments.syntax), report);
}

} // namespace

int main(int count, char** texts)
{
    PrepareStandardStreams();
    InitDicomDLL();
    try
    {
        return Run(count, texts);
    }
    catch (const std::exception& failure)
    {
        CReport(false, false).Error(failure.what());
    }
    catch (const CException& failure)
    {
        CReport(false, false).Error(failure.GetErrorMessage());
    }
    return STATUS_UNWRITTEN;
}
