#include "Varnotix/platform/Arrays.h"
#include "Varnotix/platform/DumpContext.h"

#include <gtest/gtest.h>

#include <memory>

class CShape : public CObject
{
    DECLARE_DYNAMIC(CShape)
    void Serialize(CArchive&) override {}
};

class CCircle : public CShape
{
    DECLARE_DYNCREATE(CCircle)
};

// The derived classes come first: a record must not need its base's record to be ready.
IMPLEMENT_DYNCREATE(CCircle, CShape)
IMPLEMENT_DYNAMIC(CShape, CObject)

TEST(RuntimeClass, RecordsGiveAncestryAndCreateByName)
{
    const CCircle circle;
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(circle.IsKindOf(RUNTIME_CLASS(CByteArray)));
    EXPECT_FALSE(circle.IsKindOf(nullptr));
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CCircle"));
    EXPECT_NE(dynamic_cast<CCircle*>(made.get()), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CShape"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("ccircle"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);
}

TEST(DumpContext, WritesEveryKindOfValueAsText)
{
    CDumpContext dc;
    const CCircle circle;
    const CObject* nobody = nullptr;
    dc << "a" << CString("bc") << ' ' << -1 << ' ' << 4000000000u << ' ' << BYTE{65} << ' ' << WORD{65535} << ' ';
    dc << DWORD{7} << ' ' << -5000000000LL << ' ' << 0.5 << ' ' << reinterpret_cast<const void*>(0x1F) << ' ';
    dc << circle << ' ' << &circle << ' ' << nobody << ' ' << static_cast<LPCTSTR>(nullptr);
    EXPECT_STREQ(dc.Text(), "abc -1 4000000000 65 65535 7 -5000000000 0.5 0x1f CCircle CCircle (NULL) (NULL)");

    CDumpContext padded; // Text ends at its first zero byte.
    padded << CString("1.2\0junk", 8) << "|";
    EXPECT_EQ(padded.Text().View(), "1.2|");
}
