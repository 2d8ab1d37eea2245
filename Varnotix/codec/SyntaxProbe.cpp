#include "Varnotix/codec/SyntaxProbe.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ElementHeader.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/registry/DcmRegistry.h"

namespace Varnotix
{

namespace
{

constexpr int kMostElements = 16;

/// How far a tag speaks for a syntax: tags of the standard most, unknown ones not at all.
int WeightOf(DWORD tag)
{
    if (CDcmRegistry::Global().LookUpPublicTag(tag) != nullptr)
    {
        return 2;
    }
    const bool isPrivate = Tag::IsPrivate(tag);
    const bool isGroupLength = Tag::IsGroupLength(tag);
    return isPrivate || isGroupLength ? 1 : 0;
}

/// The size of header and value; 0 where the header does not fit the syntax. A value of undefined length ends the look.
std::size_t ElementSize(const BYTE* data, std::size_t size, int syntax, DWORD tag)
{
    const bool bigEndian = syntax == SYNTAX_EXPLICIT_BIG;
    std::size_t header = kItemHeaderSize;
    DWORD length = 0;
    if (syntax == SYNTAX_IMPLICIT_LITTLE)
    {
        if (WeightOf(tag) == 0)
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

struct SFit
{
    int elements = 0;
    int weight = 0;
};

/// @param most of the elements that are looked at.
SFit FitOf(const BYTE* data, std::size_t size, int syntax, int most)
{
    const bool bigEndian = syntax == SYNTAX_EXPLICIT_BIG;
    SFit fit;
    DWORD last = 0;
    while (fit.elements < most && size >= kItemHeaderSize)
    {
        const DWORD tag = Tag::Make(Word(data, bigEndian), Word(data + 2, bigEndian));
        const std::size_t element = tag < last ? 0 : ElementSize(data, size, syntax, tag);
        if (element == 0)
        {
            break;
        }
        ++fit.elements;
        fit.weight += WeightOf(tag);
        last = tag;
        data += element;
        size -= element;
    }
    return fit;
}

} // namespace

bool ClearlyFits(const BYTE* data, std::size_t size, int syntax)
{
    constexpr int kClear = 2;
    const SFit fit = FitOf(data, size, syntax, kClear);
    return fit.elements == kClear && fit.weight > 0;
}

int ElementsThatFit(const BYTE* data, std::size_t size, int syntax)
{
    return FitOf(data, size, syntax, kMostElements).elements;
}

int ProbeSyntax(const BYTE* data, std::size_t size)
{
    int best = SYNTAX_UNKNOWN;
    int most = 0;
    for (const int syntax : {SYNTAX_EXPLICIT_LITTLE, SYNTAX_IMPLICIT_LITTLE, SYNTAX_EXPLICIT_BIG})
    {
        const int weight = FitOf(data, size, syntax, kMostElements).weight;
        if (weight > most)
        {
            best = syntax;
            most = weight;
        }
    }
    return best;
}

} // namespace Varnotix
