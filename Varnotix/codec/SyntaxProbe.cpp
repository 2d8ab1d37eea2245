#include "Varnotix/codec/SyntaxProbe.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ExplicitVr.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/registry/DcmRegistry.h"

namespace
{

constexpr int kMostElements = 16;

bool IsKnown(DWORD tag)
{
    const bool isPrivate = (tag >> 16U) % 2 == 1;
    const bool isGroupLength = (tag & 0xFFFFU) == 0;
    return isPrivate || isGroupLength || CDcmRegistry::Global().LookUpPublicTag(tag) != nullptr;
}

/// The size of header and value; 0 where the header does not fit the syntax. A value of undefined length ends the look.
std::size_t ElementSize(const BYTE* data, std::size_t size, int syntax, DWORD tag)
{
    const bool bigEndian = syntax == SYNTAX_EXPLICIT_BIG;
    std::size_t header = kItemHeaderSize;
    DWORD length = 0;
    if (syntax == SYNTAX_IMPLICIT_LITTLE)
    {
        if (!IsKnown(tag))
        {
            return 0;
        }
        length = DoubleWord(data + 4, false);
    }
    else
    {
        const SExplicitVr vr = ExplicitVrOf(data + 4);
        if (!vr.isKnown)
        {
            return 0;
        }
        if (!vr.hasLongForm)
        {
            length = Word(data + 6, bigEndian);
        }
        else if (size >= kLongHeaderSize)
        {
            header = kLongHeaderSize;
            length = DoubleWord(data + 8, bigEndian);
        }
        else
        {
            return 0;
        }
    }
    if (length == kUndefinedLength)
    {
        return size;
    }
    return length <= size - header ? header + length : 0;
}

} // namespace

int ElementsThatFit(const BYTE* data, std::size_t size, int syntax)
{
    const bool bigEndian = syntax == SYNTAX_EXPLICIT_BIG;
    DWORD last = 0;
    int count = 0;
    while (count < kMostElements && size >= kItemHeaderSize)
    {
        const DWORD tag = (static_cast<DWORD>(Word(data, bigEndian)) << 16U) | Word(data + 2, bigEndian);
        const std::size_t element = tag < last ? 0 : ElementSize(data, size, syntax, tag);
        if (element == 0)
        {
            break;
        }
        ++count;
        last = tag;
        data += element;
        size -= element;
    }
    return count;
}

int ProbeSyntax(const BYTE* data, std::size_t size)
{
    int best = SYNTAX_UNKNOWN;
    int most = 0;
    for (const int syntax : {SYNTAX_EXPLICIT_LITTLE, SYNTAX_IMPLICIT_LITTLE, SYNTAX_EXPLICIT_BIG})
    {
        const int count = ElementsThatFit(data, size, syntax);
        if (count > most)
        {
            best = syntax;
            most = count;
        }
    }
    return best;
}
