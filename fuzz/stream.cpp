// Any bytes as a stored object: read, asked, copied, shown as text and written in every syntax.

#include "Objects.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SFreshDictionary fresh;
    const CByteArray stream = ToArray(data, size);
    CDcmIOD object;
    object.Import(stream);
    Promise(object.GetCountAll() <= stream.GetSize() / kShortestElement, "elements are no more than the stream holds");
    if (object.GetCount() == 0)
    {
        return 0;
    }

    AskForValues(object.ElementStore());
    CStringArray lines;
    object.Export(lines);
    Promise(lines.GetSize() >= object.GetCountAll(), "each element has a line");
    const CDcmIOD copy(object);
    Promise(copy == object || ReadsOtherwise(object.ElementStore()), "a copy equals what it was made of");
    object.Anonymize55("none");
    object = copy;
    object.Sort();
    Promise(object.IsSubSet(object) || ReadsOtherwise(copy.ElementStore()), "an object holds its own elements");
    for (const char* uid : kSyntaxUids)
    {
        PromiseRoundTrip(copy, uid);
    }
    CByteArray file;
    object.GroupLengths(true);
    object.ExportFileFormat(file);
    return 0;
}
