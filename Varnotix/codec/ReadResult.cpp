#include "Varnotix/codec/ReadResult.h"

IMPLEMENT_DYNAMIC(CParseException, CException)

const char* Varnotix::ParseFaultText(EParseFault fault)
{
    static constexpr const char* kTexts[] = {
        "a value length is larger than the whole stream",
        "a tag that the dictionary lacks, or an unknown VR",
        "a tag that the dictionary lacks, or an unknown VR",
        "the stream ends inside a length field",
        "no such transfer syntax",
        "the stream ends inside a value",
        "encapsulated pixel data has more frames than its offset table has entries",
        "encapsulated pixel data does not begin with an item for the offset table",
        "the stream ends inside an item of encapsulated pixel data",
        "an item is outside every sequence",
        "a tag without a VR",
        "a fragment of encapsulated pixel data is not an item, or the stream ends inside it",
        "a tag that the dictionary lacks",
        "the stream is shorter than six bytes",
        "sequences are nested more than 64 levels deep",
        "the stream is cut off inside an element",
        "the data set is deflated",
        "no transfer syntax fits the first elements",
        "an item begins with another tag",
        "a value of undefined length that is neither a sequence nor Pixel Data",
    };
    const bool known = fault >= 0 && fault < static_cast<int>(sizeof kTexts / sizeof kTexts[0]);
    return known ? kTexts[fault] : "unknown fault";
}
