// Any bytes as a text document: read, shown as text again, and from then on read and shown as the same.

#include "Objects.h"
#include "Scratch.h"

#include <string>

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

    // The first text loses what a value list cannot hold; nothing more is lost by the next.
    const auto reread = [](const CDcmIOD& from)
    {
        const std::string text = ElementLines(from);
        CDcmIOD to;
        to.ImportFromASL(ScratchFile(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
        return to;
    };
    const CDcmIOD second(reread(object));
    const CDcmIOD third(reread(second));
    Promise(ElementLines(third) == ElementLines(second), "a text document is read as the object that it shows");
    return 0;
}
