// Runs the built command-line host in a folder of the test's own, and builds inputs for it byte by byte.
#pragma once

#include "Programs.h"
#include "Varnotix/Varnotix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

inline const std::string kImplicitUid = "1.2.840.10008.1.2";
inline const std::string kExplicitUid = "1.2.840.10008.1.2.1";
inline const std::string kBigUid = "1.2.840.10008.1.2.2";
inline const std::string kRleUid = "1.2.840.10008.1.2.5";

inline std::string LittleEndian(unsigned long number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
    {
        text += static_cast<char>(number >> (8 * i) & 0xFFU);
    }
    return text;
}

inline std::string Tag(unsigned long tag)
{
    return LittleEndian(tag >> 16U, 2) + LittleEndian(tag & 0xFFFFU, 2);
}

/// An element in explicit VR little endian; the value is taken as it is.
inline std::string Explicit(unsigned long tag, const std::string& vr, const std::string& value)
{
    const bool isLong = vr == "OB" || vr == "OW" || vr == "OF" || vr == "SQ" || vr == "UN" || vr == "UT";
    const std::string length =
        isLong ? LittleEndian(0, 2) + LittleEndian(value.size(), 4) : LittleEndian(value.size(), 2);
    return Tag(tag) + vr + length + value;
}

/// An element in implicit VR little endian.
inline std::string Implicit(unsigned long tag, const std::string& value)
{
    return Tag(tag) + LittleEndian(value.size(), 4) + value;
}

inline std::string Item(const std::string& elements)
{
    return Implicit(0xFFFEE000, elements);
}

/// Pixel data of undefined length: an offset table and fragments.
inline std::string Encapsulated(const std::string& table, const std::vector<std::string>& fragments)
{
    std::string text = Tag(0x7FE00010) + "OB" + LittleEndian(0, 2) + LittleEndian(0xFFFFFFFF, 4) + Item(table);
    for (const std::string& fragment : fragments)
    {
        text += Item(fragment);
    }
    return text + Implicit(0xFFFEE0DD, "");
}

inline std::string Us(unsigned long tag, unsigned long value)
{
    return Explicit(tag, "US", LittleEndian(value, 2));
}

inline std::string PaddedUid(const std::string& uid)
{
    return uid.size() % 2 == 0 ? uid : uid + '\0';
}

/// Preamble, "DICM" and a group 0002 of group length and Transfer Syntax UID, before the data set.
inline std::string Part10(const std::string& uid, const std::string& dataSet)
{
    const std::string meta = Explicit(0x00020010, "UI", PaddedUid(uid));
    return std::string(128, '\0') + "DICM" + Explicit(0x00020000, "UL", LittleEndian(meta.size(), 4)) + meta + dataSet;
}

class ToolTest : public testing::Test
{
protected:
    /// What a run left.
    struct SRun
    {
        int status;
        std::string out;
        std::string err;
    };

    ToolTest()
    {
        const testing::TestInfo& info = *testing::UnitTest::GetInstance()->current_test_info();
        const std::filesystem::path folder = std::string("work-") + info.test_suite_name() + "-" + info.name();
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        std::filesystem::current_path(folder);
    }
    ~ToolTest() override { std::filesystem::current_path(m_start); }

    /// Runs "varnotix ARGUMENTS", which may redirect. The standard output goes to a file or device.
    /// @param limit a command of the shell, to run before.
    static SRun Run(const std::string& arguments, const std::string& out = "out.txt", const std::string& limit = "")
    {
        const int status = StatusOf("varnotix", arguments, out, limit);
        return {status, std::filesystem::is_regular_file(out) ? Read(out) : "", Read("err.txt")};
    }

    /// Runs with a terminal for standard output and errors.
    /// @return false where that cannot be done.
    static bool RunOnTerminal(const std::string& arguments, std::string& printed, const std::string& environment = "")
    {
        const std::string command = environment + " script -q -c '\"$VARNOTIX_BIN/varnotix\" " + arguments +
                                    "' /dev/null >out.txt 2>&1 </dev/null";
        const bool isRun = !kIsWindows && std::system("command -v script >out.txt") == 0;
        printed = isRun && std::system(command.c_str()) >= 0 ? Read("out.txt") : "";
        std::erase(printed, '\r');
        return isRun;
    }

    /// Runs as above and expects the status, and all parts in the messages.
    static SRun Expect(int status, const std::string& arguments, const auto&... parts)
    {
        SCOPED_TRACE(arguments);
        SRun run = Run(arguments);
        EXPECT_EQ(run.status, status) << run.err;
        EXPECT_TRUE(Holds(run.err, parts...));
        return run;
    }

    static void Write(const std::string& name, const std::string& bytes)
    {
        std::ofstream(name, std::ios::binary) << bytes;
    }

    static std::string Read(const std::string& name)
    {
        std::string text = ReadText(name);
        if (name == "err.txt")
        {
            std::erase(text, '\r'); // Messages have the line ends of their system.
        }
        return text;
    }

    static void ReadObject(const std::string& name, CDcmIOD& object)
    {
        CFile file(name.c_str(), CFile::modeRead);
        CArchive archive(&file, CArchive::load);
        object.Serialize(archive);
    }

    /// By the standard stream rules.
    static void ReadByStandard(const std::string& name, CDcmIOD& object)
    {
        object.StreamRules(STREAM_RULES_STANDARD);
        ReadObject(name, object);
        EXPECT_FALSE(object.ReadStopped()) << name;
    }

    /// The text of each element without the blank that makes its length even, in brackets; "-" where there is none.
    static std::string TextsOf(const std::string& name, std::initializer_list<int> tags)
    {
        CDcmIOD object;
        ReadObject(name, object);
        std::string texts;
        for (const int tag : tags)
        {
            const CDcmElement* found = object.ElementStore().Find(tag >> 16, tag & 0xFFFF);
            CString text = found == nullptr ? CString() : found->JoinedText();
            text.TrimRight();
            texts += found == nullptr ? "-" : "[" + std::string(text.CText()) + "]";
        }
        return texts;
    }

    /// The files in a folder that begin as temporary outputs do.
    static int CountTemporaries(const std::string& folder = ".")
    {
        const auto isOne = [](const auto& entry) { return entry.path().filename().string().starts_with(".varnotix-"); };
        return static_cast<int>(std::count_if(std::filesystem::directory_iterator(folder), {}, isOne));
    }

    /// In any order.
    static testing::AssertionResult Holds(const std::string& text, const auto&... parts)
    {
        return Find(text, {parts...}, false);
    }
    static testing::AssertionResult HoldsInOrder(const std::string& text, const auto&... parts)
    {
        return Find(text, {parts...}, true);
    }

private:
    static testing::AssertionResult Find(const std::string& text, std::initializer_list<std::string> parts,
                                         bool inOrder)
    {
        std::size_t place = 0;
        for (const std::string& part : parts)
        {
            const std::size_t found = text.find(part, place);
            if (found == std::string::npos)
            {
                return testing::AssertionFailure() << "no \"" << part << "\" after offset " << place << " of:\n"
                                                   << text;
            }
            place = inOrder ? found + part.size() : 0;
        }
        return testing::AssertionSuccess();
    }

    const std::filesystem::path m_start = std::filesystem::current_path();
};
