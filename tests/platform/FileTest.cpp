#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/FileSearch.h"
#include "Varnotix/platform/MemFile.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>

using namespace Varnotix;

namespace
{
/// A folder of its own for each test, below the current one, and gone with the test.
class FileTest : public testing::Test
{
protected:
    FileTest()
    {
        std::filesystem::remove_all(m_folder.View());
        std::filesystem::create_directories(In("Sub.Dir").View());
    }
    ~FileTest() override { std::filesystem::remove_all(m_folder.View()); }
    CString In(const char* name) const { return JoinPath(m_folder, name); }
    static void Create(const CString& path, const char* content)
    {
        CFile(path, CFile::modeCreate | CFile::modeWrite).Write(content, static_cast<UINT>(std::strlen(content)));
    }
    static CString Content(const CString& path)
    {
        CFile file(path, CFile::modeRead);
        char buffer[64] = {};
        return CString(buffer, static_cast<int>(file.Read(buffer, sizeof(buffer))));
    }
    const CString m_folder = CString("platform_") + testing::UnitTest::GetInstance()->current_test_info()->name();
};

std::string Text(const CFile& file)
{
    return std::string(reinterpret_cast<const char*>(file.GetBufferPtr()), static_cast<std::size_t>(file.GetLength()));
}
} // namespace

TEST_F(FileTest, OpensPathsOfAnotherCaseAndSeparator)
{
    Create(In("Sub.Dir/Image01.DCM"), "pixels");
    CString scriptPath = m_folder + "\\sub.dir\\image01.dcm";
    scriptPath.MakeLower();
    EXPECT_EQ(Content(scriptPath), "pixels");
    EXPECT_TRUE(FindPathNoCase(m_folder + "/sub.dir/image02.dcm").IsEmpty());
    EXPECT_TRUE(FindPathNoCase("").IsEmpty());
    // A file that is to be created gets the name that was asked for.
    Create(In("Sub.Dir/image01.new"), "x");
    EXPECT_TRUE(FileExists(In("Sub.Dir/image01.new")));
    EXPECT_FALSE(FileExists(In("Sub.Dir")));
    EXPECT_TRUE(SyncFile(In("Sub.Dir/image01.new")));
    EXPECT_TRUE(ReplaceFileByRename(In("Sub.Dir/image01.new"), In("Sub.Dir/Image01.DCM")));
    EXPECT_EQ(Content(scriptPath), "x");
    EXPECT_FALSE(ReplaceFileByRename(In("Sub.Dir/image01.new"), In("Sub.Dir/Image01.DCM")));
    EXPECT_FALSE(SyncFile(In("Sub.Dir/image01.new")));
}

TEST(FileSearchTest, WildcardsMatchWithoutCaseAndInLinearTries)
{
    EXPECT_TRUE(MatchesWildcard("*.dcm", "A.B.DCM"));
    EXPECT_TRUE(MatchesWildcard("im?ge*", "IMAGE"));
    EXPECT_TRUE(MatchesWildcard("*.*", "plain"));
    EXPECT_TRUE(MatchesWildcard("*a*b", "xaybab"));
    EXPECT_FALSE(MatchesWildcard("im?ge", "imge"));
    // Trying every star against every place would not come to an end here.
    EXPECT_FALSE(MatchesWildcard("*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b", CString('a', 250)));
}

TEST(MemFileTest, ReadsAttachedBytesInPlaceAndNeverChangesThem)
{
    BYTE bytes[] = {'a', 'b', 'c'};
    CMemFile file(bytes, 3);
    EXPECT_EQ(file.GetBufferPtr(), bytes);
    char piece[8] = {};
    file.Seek(1, CFile::begin);
    EXPECT_EQ(file.Read(piece, 8), 2u);
    EXPECT_STREQ(piece, "bc");
    EXPECT_EQ(file.Read(piece, 1), 0u);
    file.Write("d", 1);
    file.Seek(0, CFile::begin);
    file.Write("A", 1);
    EXPECT_EQ(Text(file), "Abcd");
    EXPECT_EQ(bytes[0], 'a');
}

TEST(MemFileTest, ImpossibleLengthsThrowAndChangeNothing)
{
    CMemFile file;
    file.Write("abc", 3);
    EXPECT_THROW(file.SetLength(1ULL << 31), CMemoryException);
    EXPECT_THROW(file.Seek(-1, CFile::begin), CFileException);
    for (const long long place : {1LL << 40, 0LL + INT_MAX})
    {
        file.Seek(place, CFile::begin);
        EXPECT_THROW(file.Write("x", 1), CMemoryException);
    }
    EXPECT_THROW(file.Seek(LLONG_MAX, CFile::current), CFileException);
    EXPECT_EQ(Text(file), "abc");
}

TEST(ArchiveTest, StoresIntegersLittleEndianInTheirOwnWidth)
{
    CMemFile file;
    CArchive out(&file, CArchive::store);
    out << BYTE{0x01} << WORD{0x0203} << DWORD{0x04050607} << -2 << UINT{8};
    out.Close();
    EXPECT_EQ(Text(file), std::string("\x01\x03\x02\x07\x06\x05\x04\xFE\xFF\xFF\xFF\x08\0\0\0", 15));
    file.Seek(-4, CFile::end);
    CArchive in(&file, CArchive::load);
    UINT number = 0;
    in >> number;
    EXPECT_EQ(number, 8u);
    EXPECT_THROW(in >> number, CArchiveException);
}

TEST(ArchiveTest, LinesEndAtLineFeedWhereverTheBufferEnds)
{
    // The carriage return of the first line is the last byte of the first buffer.
    const std::string first(127, 'a');
    const std::string content = first + "\r\n\r\n\nb\rc\nlast";
    CMemFile file;
    file.Attach(reinterpret_cast<const BYTE*>(content.data()), static_cast<UINT>(content.size()));
    CArchive in(&file, CArchive::load, 128);
    for (const std::string& expected : {first, std::string(), std::string(), std::string("b\rc"), std::string("last")})
    {
        CString line;
        ASSERT_TRUE(in.ReadString(line));
        EXPECT_EQ(line.View(), expected);
    }
    CString line = "left over";
    EXPECT_FALSE(in.ReadString(line));
    EXPECT_TRUE(line.IsEmpty());
}

TEST(ArchiveTest, CloseReportsAFailedWriteAndTheDestructorDoesNot)
{
    CFile closed;
    {
        CArchive out(&closed, CArchive::store);
        out << 1;
    }
    CArchive out(&closed, CArchive::store);
    out << 1;
    EXPECT_THROW(out.Close(), CFileException);
    EXPECT_NO_THROW(out.Close());
}
