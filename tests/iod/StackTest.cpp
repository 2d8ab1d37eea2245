#include "Elements.h"
#include "SmallStack.h"
#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/iod/ImageIODs.h"
#include "Varnotix/platform/DumpContext.h"
#include "Varnotix/platform/MemFile.h"

namespace
{

/// Referenced Image Sequences, each in an item of the one before.
CByteArray DeepStream()
{
    CDcmElement* nested = MakeText(0x0008, 0x1155, "1.2");
    for (int depth = 0; depth < CDcmParser::kMaxDepth; ++depth)
    {
        nested = MakeSequence(0x0008, 0x1140, {nested, MakeText(0x0010, 0x0010, "DOE^JANE")});
    }
    CDcmIOD object;
    object.ElementStore().Add(nested);
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    return bytes;
}

/// All that an object does by following its sequences.
template <class IOD>
void UseDeepObject()
{
    constexpr int kElements = 1 + 2 * CDcmParser::kMaxDepth;
    auto object = std::make_unique<IOD>();
    object->Import(DeepStream());
    ASSERT_EQ(object->GetCountAll(), kElements);

    IOD copy(*object);
    copy = *object;
    EXPECT_TRUE(copy == *object);
    object.reset();
    EXPECT_EQ(copy.GetCountAll(), kElements);

    CStringArray lines;
    copy.Export(lines);
    EXPECT_GT(lines.GetSize(), kElements);
    CMemFile text;
    {
        CDumpContext context(&text);
        copy.ElementStore().Dump(context);
    }
    EXPECT_GT(text.GetLength(), static_cast<ULONGLONG>(kElements));

    copy.Anonymize55("NOBODY");
    copy.UpdateIod(false);
    copy.UpdateIod(true);
    EXPECT_EQ(copy.GetCountAll(), kElements);
    copy.GroupLengths(true);
    for (const char* uid : {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2"})
    {
        copy.IodSyntax(uid);
        CByteArray bytes;
        copy.ExportFileFormat(bytes);
        IOD again;
        again.Import(bytes);
        EXPECT_GT(again.GetCountAll(), kElements) << uid;
    }
    copy.EmptyIodModules();
    copy.ElementStore().EmptyValues();
    EXPECT_TRUE(copy.ElementStore().IsEmptyOfValues());
}

} // namespace

TEST(Stack, OfOneMegabyteIsEnoughForAnObjectOfTheDeepestNesting)
{
    OnSmallStack(UseDeepObject<CDcmIOD>);
    OnSmallStack(UseDeepObject<CCTImageIOD>);
}
