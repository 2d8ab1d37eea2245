// Any bytes as a text document: read, shown as text again, and from then on read and shown as the same.

#include "Objects.h"
#include "Scratch.h"

#include <string>
#include <utility>

namespace
{

/// The lines of the elements, without those on the whole object.
std::string ElementLines(const CDcmIOD& object)
{
    CStringArray lines;
    object.Export(lines);
    std::string text;
    bool inside = false;
    for (const CString& line : lines)
    {
        inside = inside || line == "#ATTRIBUTE_SET_BEGIN";
        text += inside ? std::string(line.View()) + "\n" : std::string();
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SFreshDictionary fresh;
    CDcmIOD object;
    object.ImportFromASL(ScratchFile(data, size));
    Promise(object.GetCountAll() <= static_cast<int>(size), "elements are no more than the text has bytes");
    AskForValues(object.ElementStore());
    CByteArray file;
    CDcmIOD(object).ExportFileFormat(file);

    const auto again = [](const std::string& text)
    {
        CDcmIOD reread;
        reread.ImportFromASL(ScratchFile(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
        return ElementLines(reread);
    };
    // The first text loses what a value list cannot hold. Bytes that are printable digits are read as one number, whose
    // byte may be a digit again, so a few more texts may differ; but each shows all elements.
    const auto lineCount = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
    std::string text = ElementLines(object);
    for (int readings = 0;; ++readings)
    {
        std::string next = again(text);
        if (next == text)
        {
            return 0;
        }
        Promise(readings == 0 || (readings < 5 && lineCount(next) == lineCount(text)),
                "a text document is read as the object that it shows");
        text = std::move(next);
    }
}
