#include "SmallStack.h"
#include "StreamBytes.h"
#include "Varnotix/iod/DcmIOD.h"

#include <gtest/gtest.h>

namespace
{

void Put(Bytes& bytes, std::size_t value, int width, bool bigEndian)
{
    for (int i = 0; i < width; ++i)
    {
        bytes.push_back(static_cast<BYTE>(value >> 8U * static_cast<unsigned>(bigEndian ? width - 1 - i : i)));
    }
}

/// A text element inside as many sequences as asked for, of one item each.
Bytes Nested(int depth, int syntax, bool definedLengths)
{
    const bool big = syntax == SYNTAX_EXPLICIT_BIG;
    const bool isExplicit = syntax != SYNTAX_IMPLICIT_LITTLE;
    const auto tag = [&](Bytes& bytes, std::size_t group, std::size_t element)
    {
        Put(bytes, group, 2, big);
        Put(bytes, element, 2, big);
    };
    Bytes inner;
    tag(inner, 0x0008, 0x0100);
    inner = inner + Stream(isExplicit ? "'SH'" : "");
    Put(inner, 2, isExplicit ? 2 : 4, big);
    inner = inner + Stream("'AB'");
    for (int level = 0; level < depth; ++level)
    {
        Bytes outer;
        tag(outer, 0x0008, 0x1140);
        outer = outer + Stream(isExplicit ? "'SQ' 0000" : "");
        Put(outer, definedLengths ? inner.size() + 8 : 0xFFFFFFFFU, 4, big);
        tag(outer, 0xFFFE, 0xE000);
        Put(outer, definedLengths ? inner.size() : 0xFFFFFFFFU, 4, big);
        outer = outer + inner;
        if (!definedLengths)
        {
            tag(outer, 0xFFFE, 0xE00D);
            Put(outer, 0, 4, big);
            tag(outer, 0xFFFE, 0xE0DD);
            Put(outer, 0, 4, big);
        }
        inner.swap(outer);
    }
    return inner;
}

Bytes Repeated(const Bytes& start, const Bytes& piece, int count, const Bytes& end)
{
    Bytes bytes(start);
    bytes.reserve(start.size() + piece.size() * static_cast<std::size_t>(count) + end.size());
    for (int i = 0; i < count; ++i)
    {
        bytes.insert(bytes.end(), piece.begin(), piece.end());
    }
    return bytes + end;
}

constexpr int kMany = 1000000;

const char* const kUids[] = {"", "1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "", "1.2.840.10008.1.2.2"};

/// What a set holds, without the blanks and zero bytes that padding may add to values.
std::string Unpadded(const CDcmIOD& object)
{
    std::string text = Show(object.ElementStore());
    std::erase_if(text, [](char character) { return character == ' ' || character == '~'; });
    return text;
}

/// What is not read again as it was written: an empty sequence, which takes the element behind it, and a second group
/// length of a group, which stays when the first one is remade.
bool ReadsOtherwise(const CDcmElementSet& set)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        const CDcmElementSet* items = element.Items();
        if ((items != nullptr && (items->IsEmpty() || ReadsOtherwise(*items))) ||
            (element.Element() == 0 && set.Find(element) != &element))
        {
            return true;
        }
    }
    return false;
}

/// Reads a stream; whatever could be read must survive being written and read again, and is then written in the same
/// way.
/// @return the number of elements.
int SurvivesRoundTrip(const Bytes& stream)
{
    CByteArray bytes;
    bytes.Assign(stream.data(), static_cast<int>(stream.size()));
    CDcmIOD first;
    first.Import(bytes);
    if (first.GetCount() == 0)
    {
        return 0;
    }
    first.IodSyntax(CString(kUids[first.IodSyntax()]));
    CByteArray written;
    first.ExportFileFormat(written);
    CDcmIOD second;
    second.Import(written);
    if (ReadsOtherwise(first.ElementStore()))
    {
        return first.GetCount();
    }
    EXPECT_EQ(Unpadded(second), Unpadded(first));
    second.IodSyntax(CString(kUids[first.IodSyntax()]));
    CByteArray rewritten;
    second.ExportFileFormat(rewritten);
    EXPECT_EQ(HexText(rewritten), HexText(written));
    CDcmIOD third;
    third.Import(rewritten);
    EXPECT_TRUE(third == second);
    return first.GetCount();
}

/// A file with all that a decoder has to follow: a meta group, a sequence of two items, a private element, a text list
/// and encapsulated frames with an offset table.
const Bytes& SmallFile()
{
    static const Bytes file =
        Bytes(128, BYTE{0}) + Stream("'DICM'"
                                     "0200 0000 'UL' 0400 1C000000"
                                     "0200 1000 'UI' 1400 '1.2.840.10008.1.2.1' 00"
                                     "0800 0800 'CS' 0600 'A\\\\B\\C'"
                                     "0800 4011 'SQ' 0000 FFFFFFFF"
                                     "FEFF 00E0 FFFFFFFF 0800 0001 'SH' 0200 'AB' FEFF 0DE0 00000000"
                                     "FEFF 00E0 0A000000 0800 0401 'LO' 0200 'CD'"
                                     "FEFF DDE0 00000000"
                                     "0B00 1020 'OB' 0000 02000000 0102"
                                     "2800 0200 'US' 0200 0300"
                                     "E07F 1000 'OB' 0000 FFFFFFFF"
                                     "FEFF 00E0 08000000 00000000 0A000000"
                                     "FEFF 00E0 02000000 0102"
                                     "FEFF 00E0 04000000 03040506"
                                     "FEFF DDE0 00000000");
    return file;
}

} // namespace

TEST(Hostile, SequencesAreFollowedSixtyFourLevelsDeepAndNoFurther)
{
    OnSmallStack(
        []
        {
            for (const int syntax : {SYNTAX_IMPLICIT_LITTLE, SYNTAX_EXPLICIT_LITTLE, SYNTAX_EXPLICIT_BIG})
            {
                for (const bool definedLengths : {false, true})
                {
                    SRead deep(Nested(64, syntax, definedLengths));
                    EXPECT_EQ(deep.parser.OutputSyntax(), syntax);
                    EXPECT_EQ(deep.set.GetCountAll(), 65);
                    CDcmElementSet copy;
                    copy.CopyByValue(deep.set);
                    EXPECT_TRUE(copy == deep.set);
                    SRead again(Written(copy, syntax, true));
                    EXPECT_EQ(again.set.GetCountAll(), 65 + 65); // a group length in each set
                    EXPECT_EQ(Show(SRead(Written(again.set, syntax)).set), Show(deep.set));
                    for (const int depth : {65, 66, 1000})
                    {
                        const SRead deeper(Nested(depth, syntax, definedLengths));
                        EXPECT_EQ(deeper.set.GetCount(), 0);
                        ASSERT_FALSE(deeper.parser.Trials().empty());
                        EXPECT_EQ(deeper.parser.Trials().back().fault, PARSE_TOO_DEEP);
                        EXPECT_EQ(deeper.parser.Trials().back().syntax, syntax);
                    }
                }
            }
        });
}

TEST(Hostile, EmptySequencesInARowCountAsNested)
{
    const Bytes empty = Stream("0800 4011 'SQ' 0000 00000000");
    const Bytes text = Stream("0800 0001 'SH' 0200 'AB'");
    EXPECT_EQ(SRead(Repeated({}, empty, 64, text)).set.GetCountAll(), 65);
    EXPECT_EQ(SRead(Repeated({}, empty, 65, text)).parser.Trials().back().fault, PARSE_TOO_DEEP);
    EXPECT_EQ(SRead(Repeated({}, empty + text, kMany / 10, {})).set.GetCount(), kMany / 10);
}

TEST(Hostile, MillionsOfEmptyPiecesAreReadAndWritten)
{
    const Bytes item = Stream("FEFF 00E0 00000000");
    const Bytes itemEnd = Stream("FEFF 0DE0 00000000");
    const Bytes end = Stream("FEFF DDE0 00000000");
    const Bytes pixels = Stream("E07F 1000 'OB' 0000 FFFFFFFF");
    const Bytes sequence = Stream("0800 4011 'SQ' 0000 FFFFFFFF");

    const Bytes fragments = Repeated(pixels + item, item, kMany, end);
    SRead frames(fragments);
    ASSERT_EQ(frames.set.GetCount(), 1);
    EXPECT_EQ(frames.set.GetAt(0)->Frames()->GetCount(), kMany);
    EXPECT_TRUE(Written(frames.set, SYNTAX_EXPLICIT_LITTLE) == fragments);
    // With a table all of them gather in two frames.
    const Bytes tabled = Repeated(pixels + Stream("FEFF 00E0 04000000 00000000"), item, kMany, end);
    SRead gathered(tabled);
    ASSERT_EQ(gathered.set.GetCount(), 1);
    EXPECT_EQ(gathered.set.GetAt(0)->Frames()->GetCount(), 2);
    EXPECT_TRUE(Written(gathered.set, SYNTAX_EXPLICIT_LITTLE) == tabled);

    EXPECT_EQ(SRead(Repeated(sequence, itemEnd, kMany, end)).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(Repeated(sequence, item, kMany, {})).set.GetCountAll(), 1);
    EXPECT_EQ(SRead(Repeated({}, itemEnd, kMany, {})).Trials(), "4:2@6 2:9@4 1:9@4");
    EXPECT_EQ(SRead(Repeated({}, end, kMany, {})).set.GetCount(), 0);
    const Bytes text = Stream("0800 0001 'SH' 0000");
    EXPECT_EQ(SRead(Repeated(sequence, item + text, kMany / 10, end)).set.GetCountAll(), 1 + kMany / 10);
}

TEST(Hostile, AFileCutAtAnyByteIsReadUpToAnElementOrNotAtAll)
{
    const Bytes& file = SmallFile();
    ASSERT_EQ(SurvivesRoundTrip(file), 7);
    int readable = 0;
    for (std::size_t size = 132; size < file.size(); ++size)
    {
        readable +=
            SurvivesRoundTrip(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size))) > 0 ? 1 : 0;
    }
    EXPECT_GT(readable, 7);
    EXPECT_LT(readable, static_cast<int>(file.size()) / 2);
}

TEST(Hostile, AnyByteMayBeWrong)
{
    const Bytes& file = SmallFile();
    for (std::size_t i = 128; i < file.size(); ++i)
    {
        for (const int mask : {0x01, 0x08, 0x20, 0x80, 0xFF, static_cast<int>(file[i])})
        {
            Bytes broken(file);
            broken[i] = static_cast<BYTE>(broken[i] ^ mask);
            SCOPED_TRACE("byte " + std::to_string(i) + " xor " + std::to_string(mask));
            SurvivesRoundTrip(broken);
        }
    }
}
