// Any lines as a script that makes an object. What it reads is replaced by the few files that lie in the current
// folder.

#include "Objects.h"
#include "Varnotix/asl/AslLine.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

namespace
{

constexpr const char* kPicture = "picture.jpg";
constexpr const char* kObject = "object.dcm";
constexpr std::string_view kNames[] = {kPicture, kObject,  "broken.jpg",  "missing.jpg", "*.jpg", ".\\*.dcm",
                                       ".",      "folder", "PICTURE.JPG", "text.txt",    "?",     ""};

void Write(const char* name, const std::string& bytes)
{
    std::ofstream(name, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// The header of a picture of two by one pixels (ISO 10918-1 annex B), and an object with two encapsulated frames.
void MakeFiles()
{
    using namespace std::string_literals;
    Write(kPicture, "\xFF\xD8\xFF\xC0\x00\x0B\x08\x00\x01\x00\x02\x01\x01\x11\x00\xFF\xD9"s);
    Write("broken.jpg", "\xFF\xD8\xFF\xC0\x00"s);
    Write("text.txt", "no picture");
    std::filesystem::create_directory("folder");
    CDcmCompositeIOD object;
    CDcmMetaFileInformation meta;
    meta.TransferSyntaxUID("1.2.840.10008.1.2.4.50");
    CDcmImagePixelModule pixels;
    CByteArray frame;
    frame.SetSize(2);
    pixels.SetPixelData(frame);
    pixels.SetPixelData(frame);
    object << meta;
    object << pixels;
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    Write(kObject,
          std::string(reinterpret_cast<const char*>(bytes.GetData()), static_cast<std::size_t>(bytes.GetSize())));
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [word](std::string_view each) { return Varnotix::EqualNoCase(word, each); });
}

/// The line, with names of the files above in place of all that it names.
CString Tamed(std::string_view text)
{
    const std::string_view line = Varnotix::TrimBlanks(text);
    if (!line.starts_with('#'))
    {
        return CString(text);
    }
    const Varnotix::SAslCommand command = Varnotix::SplitAslCommand(line);
    if (!IsOneOf(command.keyword, {"SOURCE_FILE", "PIXEL_DATA_FILE", "PIXEL_DATA_DIR"}))
    {
        return CString(text);
    }
    const std::string_view name = command.argument;
    const bool known = std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
    std::string tamed = "#" + std::string(command.keyword) + "=";
    tamed += known ? name : kNames[std::hash<std::string_view>()(name) % std::size(kNames)];
    return CString(tamed);
}

/// @return the object that the lines make.
std::unique_ptr<CDcmCompositeIOD> Made(const CStringArray& lines, EStreamRules rules)
{
    auto object = std::make_unique<CDcmCompositeIOD>();
    object->StreamRules(rules);
    try
    {
        object->CreateFromASL(lines);
    }
    catch (const CFileException&)
    {
        // A file that the script names cannot be opened; what was made so far stays usable.
    }
    AskForValues(object->ElementStore());
    return object;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SFreshDictionary fresh;
    [[maybe_unused]] static const bool made = (MakeFiles(), true);
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    CStringArray lines;
    while (!rest.empty())
    {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        lines.Add(Tamed(rest.substr(0, end).substr(0, rest.find('\0'))));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }

    PromiseRoundTrip(*Made(lines, STREAM_RULES_CLASSIC), kSyntaxUids[1]);
    CStringArray text;
    CByteArray bytes;
    const std::unique_ptr<CDcmCompositeIOD> standard = Made(lines, STREAM_RULES_STANDARD);
    standard->CDcmIOD::Export(text);
    standard->ExportFileFormat(bytes);
    return 0;
}
