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

/// True when an element with a header and a value of these sizes is followed by a later tag with a header that makes
/// sense, by a delimiter, or by nothing.
bool LeadsOn(const BYTE* data, std::size_t size, int syntax, std::size_t headerSize, DWORD length)
{
    if (headerSize > size || length > size - headerSize)
    {
        return false;
    }
    const BYTE* next = data + headerSize + length;
    const std::size_t left = size - headerSize - length;
    if (left < kItemHeaderSize)
    {
        return left == 0;
    }
    const DWORD tag = TagAt(next, syntax);
    const bool isDelimiter = tag == Tag::kItemDelimitationItem || tag == Tag::kSequenceDelimitationItem;
    return isDelimiter || (tag > TagAt(data, syntax) && ElementSize(next, left, syntax, tag) > 0);
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

EHeaderForm HeaderFormWithoutVr(const BYTE* data, std::size_t size, int syntax)
{
    const bool bigEndian = syntax == SYNTAX_EXPLICIT_BIG;
    const DWORD length = DoubleWord(data + 4, bigEndian);
    // More elements without a VR may follow.
    const bool isImplicit = length == kUndefinedLength || LeadsOn(data, size, syntax, kShortHeaderSize, length) ||
                            (!bigEndian && LeadsOn(data, size, SYNTAX_IMPLICIT_LITTLE, kShortHeaderSize, length));
    if (isImplicit)
    {
        return EHeaderForm::Implicit;
    }
    if (size >= kLongHeaderSize && Word(data + 6, false) == 0 &&
        LeadsOn(data, size, syntax, kLongHeaderSize, DoubleWord(data + 8, bigEndian)))
    {
        return EHeaderForm::Long;
    }
    const bool isShort = LeadsOn(data, size, syntax, kShortHeaderSize, Word(data + 6, bigEndian));
    return isShort ? EHeaderForm::Short : EHeaderForm::Implicit;
}

} // namespace Varnotix
