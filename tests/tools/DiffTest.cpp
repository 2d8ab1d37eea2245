#include "ToolRunner.h"

#include <array>
#include <cstdlib>
#include <regex>
#include <utility>

using namespace std::string_literals;

class Diff : public ToolTest
{
protected:
    static std::string File(const std::string& dataSet, const std::string& uid = kExplicitUid)
    {
        return Part10(uid, dataSet);
    }

    static std::string Reference(const std::string& uid) { return Item(Explicit(0x00081155, "UI", PaddedUid(uid))); }

    /// Makes a script from two files, and follows it.
    static void ExpectScript(const std::string& left, const std::string& right)
    {
        SCOPED_TRACE(left + " " + right);
        const SRun script = Run("diff --script " + left + " " + right);
        EXPECT_EQ(script.status, 10) << script.err;
        Write("s.asl", script.out);
        Expect(0, "apply -q s.asl " + left + " -o made.dcm");
        const SRun rest = Run("diff made.dcm " + right);
        EXPECT_EQ(rest.status, 0) << rest.out << rest.err;
    }
};

TEST_F(Diff, ShowsWhatDiffersByPath)
{
    const std::string bytes(300, 'x');
    const auto image = [&](const std::string& name, const std::string& references, const std::string& pixels)
    {
        return File(Explicit(0x00080005, "CS", "ISO_IR 100") + Explicit(0x00081140, "SQ", references) +
                    Explicit(0x00090010, "LO", "ACME") + Explicit(0x00091001, "UN", "ab") +
                    Explicit(0x00100010, "PN", name) + Explicit(0x00280008, "IS", "2 ") +
                    Explicit(0x7FE00010, "OB", pixels));
    };
    Write("a.dcm", image("J\xF6rg\x1B ", Reference("1.1") + Reference("1.2"), bytes));
    std::string other = bytes;
    other[200] = other[201] = 'y';
    Write("b.dcm", image("Ann ", Reference("1.0") + Reference("1.1") + Reference("1.3"), other));
    EXPECT_EQ(Expect(10, "diff a.dcm b.dcm").out,
              "--- a.dcm\n+++ b.dcm\n"
              "ReferencedImageSequence[1] (0008,1140) SQ\n"
              "  + item with 1 attribute\n"
              "ReferencedImageSequence[2].ReferencedSOPInstanceUID (0008,1155) UI\n"
              "  - '1.2'\n  + '1.3'\n"
              "PatientName (0010,0010) PN\n"
              "  - 'J\xC3\xB6rg.'\n  + 'Ann'\n"
              "PixelData (7FE0,0010) OB: 1 of 2 frames differ: 2 (2 of 150 bytes)\n");
    Expect(0, "diff a.dcm a.dcm");
    Expect(0, "diff a.dcm b.dcm --ignore PatientName --ignore 7FE0 --ignore ReferencedImageSequence");
    Expect(20, "diff a.dcm missing.dcm", "missing.dcm");
    Expect(1, "diff a.dcm b.dcm --ignore Nothing", "neither a path");

    // Texts that look alike may be other bytes; and the VR of pixel data counts as any other.
    Write("utf.dcm", File(Explicit(0x00080005, "CS", "ISO_IR 192") + Explicit(0x00100010, "PN", "J\xC3\xB6rg ") +
                          Explicit(0x7FE00010, "OB", "ab")));
    Write("latin.dcm", File(Explicit(0x00080005, "CS", "ISO_IR 100") + Explicit(0x00100010, "PN", "J\xF6rg") +
                            Explicit(0x7FE00010, "OW", "ab")));
    EXPECT_TRUE(HoldsInOrder(Expect(10, "diff utf.dcm latin.dcm").out, "  - 'J\xC3\xB6rg'\n",
                             "  + 'J\xC3\xB6rg' (its bytes differ)\n", "PixelData (7FE0,0010)\n  - OB "));

    // The form of a file is no difference.
    Write("odd.dcm", File(Explicit(0x7FE00010, "OB", "abc")));
    Write("even.dcm", File(Explicit(0x7FE00010, "OB", "abc\0"s)));
    Expect(0, "diff odd.dcm even.dcm");
    Write("even.dcm", File(Explicit(0x7FE00010, "OB", "abcd")));
    Expect(10, "diff odd.dcm even.dcm");
    Expect(0, "convert -q -s implicit a.dcm implicit.dcm");
    Expect(0, "diff a.dcm implicit.dcm --ignore TransferSyntaxUID --ignore 0002");
}

TEST_F(Diff, PairsItemsByWhatTheyHold)
{
    // An item per letter. Signs of differences, and numbers of items: one that is left out or added, or other values.
    const std::string many(200, 'm');
    const std::array<std::string, 3> cases[] = {
        {"abcdef", "abxcdef", "+3"},
        {"abcdef", "abdef", "-3"},
        {"abcdef", "axcdyf", "~2 ~5"},
        {"abcdef", "bcdxef", "-1 +4"},
        {"abab", "baba", "-1 +4"},
        {"abc", "xyz", "~1 ~2 ~3"},
        {"", "ab", "+1 +2"},
        {"ab" + many, many + "c", "-1 -2 +201"},
        {std::string(140, 'a') + "z", std::string(139, 'b') + "z", ""}, // More steps than are tried.
    };
    for (const auto& [left, right, expected] : cases)
    {
        const auto file = [](const std::string& items)
        {
            std::string references;
            for (const char item : items)
            {
                references += Reference("1." + std::to_string(static_cast<int>(item)));
            }
            return File(Explicit(0x00081140, "SQ", references));
        };
        Write("a.dcm", file(left));
        Write("b.dcm", file(right));
        const std::string out = Expect(10, "diff a.dcm b.dcm").out;
        std::string found;
        int count = 0;
        const std::regex place(R"(\[(\d+)\](\.\w+)? \(.*\n  ([-+]) )");
        for (std::sregex_iterator match(out.begin(), out.end(), place), end; match != end; ++match, ++count)
        {
            found += (count > 0 ? " " : "") + ((*match)[2].matched ? "~" : (*match)[3].str()) + (*match)[1].str();
        }
        if (expected.empty())
        {
            EXPECT_EQ(count, 140);
            EXPECT_TRUE(found.ends_with("~139 -140")) << found;
            continue;
        }
        EXPECT_EQ(found, expected) << left << ' ' << right;
    }

    const auto withPrivate = [](const std::string& first, const std::string& second)
    {
        const auto item = [](const std::string& text) { return Item(Explicit(0x00080050, "SH", text)); };
        return File(Explicit(0x00090010, "LO", "ACME") + Explicit(0x00091002, "SQ", item(first) + item(second)));
    };
    Write("a.dcm", withPrivate("a1", "a2"));
    Write("b.dcm", withPrivate("b1", "b2"));
    if (!kIsWindows)
    {
        EXPECT_FALSE(Holds(Expect(10, "diff a.dcm b.dcm --ignore '(0009,\"ACME\",02)[2]'").out, "b2"));
    }
}

TEST_F(Diff, IsInColourOnATerminal)
{
    Write("a.dcm", File(Explicit(0x00100010, "PN", "Doe ")));
    Write("b.dcm", File(Explicit(0x00100010, "PN", "Roe ")));
    const std::pair<const char*, bool> cases[] = {{"TERM=xterm", true}, {"TERM=dumb", false}, {"NO_COLOR=1", false}};
    for (const auto& [environment, isColoured] : cases)
    {
        std::string printed;
        if (!RunOnTerminal("diff a.dcm b.dcm", printed, environment))
        {
            GTEST_SKIP() << "there is no program 'script'";
        }
        EXPECT_TRUE(Holds(printed, "Roe")) << environment;
        EXPECT_EQ(printed.find('\x1B') != std::string::npos, isColoured) << environment << printed;
    }
}

TEST_F(Diff, PairsTheFilesOfFolders)
{
    const auto object = [](const std::string& uid, const std::string& name)
    { return File(Explicit(0x00080018, "UI", PaddedUid(uid)) + Explicit(0x00100010, "PN", name)); };
    std::filesystem::create_directories("a/deep");
    std::filesystem::create_directories("b");
    Write("a/1.dcm", object("1.1", "Same"));
    Write("a/deep/2.dcm", object("1.2", "Jane"));
    Write("a/3.dcm", object("1.3", "Gone"));
    Write("a/notes.txt", "text");
    Write("b/x", object("1.2", "Jim "));
    Write("b/y", object("1.1", "Same"));
    Write("b/z", object("1.4", "New "));
    EXPECT_EQ(Expect(10, "diff a b").out,
              "only in the first: a/3.dcm\nonly in the second: b/z\n--- a/deep/2.dcm\n+++ b/x\n"
              "PatientName (0010,0010) PN\n  - 'Jane'\n  + 'Jim'\n");
    Expect(1, "diff a b/x");
}

TEST_F(Diff, MakesScriptsForWhatTextDoesNotCarry)
{
    const std::string start = Explicit(0x00080005, "CS", "ISO_IR 100");
    const std::string nested = Explicit(0x00081140, "SQ", Reference("1.1") + Reference("1.2"));
    const std::string dataSets[] = {
        start + nested + Explicit(0x00100010, "PN", "Doe^Jane") + Explicit(0x7FE00010, "OW", "abcd"),
        start + Explicit(0x00081140, "SQ", Reference("1.1")) + Explicit(0x00090010, "LO", "ACME") +
            Explicit(0x00091001, "FD", "12345678") + Explicit(0x00091002, "SQ", Item("") + Item(nested)) +
            Explicit(0x00100010, "PN", "J\xF6rg^A") + Explicit(0x00100020, "LO", "a, [b]") +
            Explicit(0x00104000, "LT", "one\r\ntwo") + Explicit(0x60023000, "OW", std::string(600, '\1')),
        Explicit(0x00080005, "CS", "ISO_IR 192") +
            Explicit(0x00081140, "SQ", Item("") + Reference("1.2") + Reference("1.3")) +
            Explicit(0x00090010, "LO", "ACME") + Explicit(0x00091001, "LO", "text") +
            Explicit(0x00100010, "PN", "J\xC3\xB6rg^Al") + Explicit(0x00100020, "LO", "not, a date ") +
            Explicit(0x00280106, "SS", "\xFE\xFF") + Explicit(0x7FE00010, "OB", "wxyz"),
        start + Us(0x00280103, 0) + Us(0x00280106, 0) + Explicit(0x7FE00008, "OF", "abcd"),
    };
    std::vector<std::string> names;
    for (const std::string& dataSet : dataSets)
    {
        names.push_back("object" + std::to_string(names.size()) + ".dcm");
        Write(names.back(), File(dataSet));
    }
    Write("rle.dcm", File(start + Encapsulated("", {"fragment", "s "}), kRleUid));
    Write("frames.dcm", File(Explicit(0x00280008, "IS", "2 ") + Encapsulated("", {"first ", "second"}), kRleUid));
    // Its pixels are signed, and so would be what takes its VR from them.
    Write("implicit.dcm", File(Implicit(0x00280103, "\1"s + '\0') + Implicit(0x00280106, "\0\0"s), kImplicitUid));
    names.insert(names.end(), {"rle.dcm", "frames.dcm", "implicit.dcm"});
    for (const std::string& left : names)
    {
        for (const std::string& right : names)
        {
            if (left != right)
            {
                ExpectScript(left, right);
                EXPECT_EQ(Read("made.dcm"), Read(right));
            }
        }
    }
    Write("bare.dcm", start);
    Expect(20, "diff --script object0.dcm bare.dcm", "there is no script", "file meta information");
}

TEST_F(Diff, ScriptsMakeOneSampleOfAnother)
{
    const std::filesystem::path folder = SampleFolder();
    if (folder.empty())
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder";
    }
    const std::pair<const char*, const char*> pairs[] = {
        {"mr_0003__epi_pe_ap-00001.dcm", "mr_0004__epi_pe_pa-00001.dcm"},
        {"CT_small.dcm", "MR_small.dcm"},
        {"MR_small_implicit.dcm", "MR_small_bigendian.dcm"},
        {"test-SR.dcm", "reportsi.dcm"},
        {"CT_small.dcm", "JPEG2000.dcm"},
    };
    std::string lines;
    for (const auto& [left, right] : pairs)
    {
        const std::string path = (folder / right).string();
        ExpectScript("\"" + (folder / left).string() + "\"", "\"" + path + "\"");
        const std::string made = "made-" + std::string(right);
        std::filesystem::rename("made.dcm", made);
        lines += path + "\n" + made + "\n";
    }
    if (std::system("/usr/bin/python3 -c \"import pydicom\" 2>err.txt") == 0)
    {
        Write("pairs.txt", lines);
        const std::string script = (ProjectFolder() / "tests/samples/equal_objects.py").string();
        EXPECT_EQ(std::system(("/usr/bin/python3 \"" + script + "\" <pairs.txt >out.txt 2>&1").c_str()), 0)
            << Read("out.txt");
    }
}
