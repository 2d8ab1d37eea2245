#include "ToolRunner.h"

#include <nlohmann/json.hpp>

using Json = ToolTest;

namespace
{

using CJson = nlohmann::json;

constexpr const char* kWhole = "dump --json --inline 999999999 ";

std::string Long(unsigned long tag, const std::string& vr, const std::string& value)
{
    return Tag(tag) + vr + LittleEndian(0, 2) + LittleEndian(value.size(), 4) + value;
}

/// Removes from both what docs/json.md lists as different.
void Align(CJson& ours, CJson& theirs)
{
    for (auto& [tag, attribute] : ours.items())
    {
        if (!theirs.contains(tag))
        {
            continue;
        }
        CJson& other = theirs[tag];
        const std::string vr = attribute["vr"];
        if (!attribute.contains("Value"))
        {
            continue;
        }
        CJson& values = attribute["Value"];
        for (std::size_t i = 0; i < values.size(); ++i)
        {
            if (vr == "SQ")
            {
                Align(values[i], other["Value"][i]);
            }
            else if (vr == "FL" || vr == "FD")
            {
                const double left = values[i];
                const double right = other["Value"][i];
                EXPECT_LE(std::abs(left - right), std::abs(left) * (vr == "FL" ? 1e-7 : 1e-15));
                other["Value"][i] = values[i];
            }
            else if (vr == "PN" && values[i].is_object())
            {
                std::string name = values[i].value("Alphabetic", "");
                name.erase(name.find_last_not_of('^') + 1);
                values[i]["Alphabetic"] = name;
                if (name.empty())
                {
                    attribute.erase("Value");
                    break;
                }
            }
        }
    }
}

std::vector<std::filesystem::path> Samples()
{
    std::vector<std::filesystem::path> paths;
    const std::filesystem::path folder = SampleFolder();
    if (!folder.empty())
    {
        for (const auto& entry : std::filesystem::directory_iterator(folder))
        {
            paths.push_back(entry.path());
        }
    }
    return paths;
}

} // namespace

TEST_F(Json, HasTheFormOfTheStandard)
{
    const std::string items = Item("") + Item(Explicit(0x00080060, "CS", "MR"));
    Write("in.dcm",
          Part10(kExplicitUid,
                 Explicit(0x00080000, "UL", LittleEndian(4, 4)) + Explicit(0x00080008, "CS", " A\\\\B \\") +
                     Explicit(0x00080060, "CS", "") + Explicit(0x00080070, "LO", "  lead trail  ") +
                     Explicit(0x00080080, "LO", std::string("a\x01\"\t\\b/", 7) + " ") +
                     Explicit(0x00080090, "PN", "A^B^^=C=\\\\==X ") +
                     Explicit(0x00101020, "DS", "+1.5\\.5\\ 5.\\007\\1E+05\\x ") +
                     Explicit(0x001021B0, "LT", "  lt\\x  ") + Explicit(0x00200013, "IS", "+5\\99999999999 ") +
                     Explicit(0x00280009, "AT", Tag(0x00181063)) + Explicit(0x00280106, "SS", LittleEndian(0xFFFE, 2)) +
                     Explicit(0x00290010, "LO", "MINE") + Long(0x00291001, "UN", "abcd") +
                     Long(0x00291002, "SV", LittleEndian(7, 4) + std::string(4, '\0')) +
                     Long(0x00291003, "UV", std::string(8, '\xFF')) + Long(0x00291004, "UC", "one\\two ") +
                     Explicit(0x00291005, "FL", LittleEndian(0x3DCCCCCD, 4) + LittleEndian(0x7F800000, 4)) +
                     Explicit(0x00291006, "FD", std::string("\0\0\0\0\0\0\0\x80", 8)) + Long(0x00400555, "SQ", items)));
    EXPECT_EQ(Expect(0, "dump --json in.dcm").out, R"({
  "00080008": {"vr": "CS", "Value": ["A",null,"B",null]},
  "00080060": {"vr": "CS"},
  "00080070": {"vr": "LO", "Value": ["lead trail"]},
  "00080080": {"vr": "LO", "Value": ["a\u0001\"\t","b/"]},
  "00080090": {"vr": "PN", "Value": [{"Alphabetic": "A^B^^", "Ideographic": "C"},null,{"Phonetic": "X"}]},
  "00101020": {"vr": "DS", "Value": [1.5,0.5,5,7,1E+05,"x"]},
  "001021B0": {"vr": "LT", "Value": ["  lt\\x"]},
  "00200013": {"vr": "IS", "Value": [5,"99999999999"]},
  "00280009": {"vr": "AT", "Value": ["00181063"]},
  "00280106": {"vr": "SS", "Value": [-2]},
  "00290010": {"vr": "LO", "Value": ["MINE"]},
  "00291001": {"vr": "UN", "InlineBinary": "YWJjZA=="},
  "00291002": {"vr": "SV", "Value": [7]},
  "00291003": {"vr": "UV", "Value": ["18446744073709551615"]},
  "00291004": {"vr": "UC", "Value": ["one","two"]},
  "00291005": {"vr": "FL", "Value": [0.100000001,"Infinity"]},
  "00291006": {"vr": "FD", "Value": [-0.0]},
  "00400555": {"vr": "SQ", "Value": [
    {},
    {
      "00080060": {"vr": "CS", "Value": ["MR"]}
    }]}
}
)");
    EXPECT_TRUE(Holds(Expect(0, "dump --json --meta in.dcm in.dcm").out, R"({"00020010":{"vr":"UI","Value":)",
                      R"("00400555":{"vr":"SQ","Value":[{},{"00080060":{"vr":"CS","Value":["MR"]}}]}})"
                      "\n{\"0002"));
}

TEST_F(Json, ConvertsTextsBetweenCharacterSetsAndBack)
{
    const struct
    {
        const char* terms;
        const char* vr;
        std::string bytes;
        const char* json;
    } kCases[] = {
        {"ISO_IR 100", "LO", "\xE4\xDF", R"("äß")"},
        {"ISO_IR 101", "LO", "\xB1\xB3", R"("ął")"},
        {"ISO_IR 144", "LO", "\xBB\xEE\xDA\xDE", R"("Люко")"},
        {"ISO_IR 126", "LO", "\xC4\xE9", R"("Δι")"},
        {"ISO_IR 127", "LO", "\xE2\xC8", R"("قب")"},
        {"ISO_IR 138", "LO", "\xF9\xF8", R"("שר")"},
        {"ISO_IR 148", "LO", "\xF0\xFE", R"("ğş")"},
        {"ISO_IR 166", "LO", "\xBC\xD9", R"("ผู")"},
        {"ISO_IR 203", "LO", "\xA4\xBD", R"("€œ")"},
        {"ISO_IR 192", "LO", "\xC3\xA4", R"("ä")"},
        // The second bytes are those of backslash and "^".
        {"GBK", "PN", "\x81\x5C^\x81\x5E", R"({"Alphabetic": "乗^乛"})"},
        {"GB18030", "LO", std::string("\x81\x5C\\\x95\x32\x82\x36 ", 8), R"("乗","𠀀")"},
        // In these codes a backslash is a yen sign, but where it divides values.
        {"ISO_IR 13", "LO", "\xD4\\\xCF~ ", R"("ﾔ","ﾏ‾")"},
        {"ISO_IR 13", "LT", "a\\b ", R"("a¥b")"},
        {"\\ISO 2022 IR 87", "PN", "A^B=\x1B$B;3ED\x1B(B^\x1B$B0\\\x1B(B ",
         R"({"Alphabetic": "A^B", "Ideographic": "山田^移"})"},
        {"ISO 2022 IR 13\\ISO 2022 IR 87", "PN",
         "\xD4\xCF=\x1B$B;3\x1B(J=", R"({"Alphabetic": "ﾔﾏ", "Ideographic": "山"})"},
        {"\\ISO 2022 IR 87\\ISO 2022 IR 159", "LO", "\x1B$(D0!\x1B(B\\\x1B$B;3\x1B(B ", R"("丂","山")"},
        {"\\ISO 2022 IR 149", "PN", "\x1B$)C\xFB\xF3^\x1B$)C\xD1\xCE ", R"({"Alphabetic": "洪^吉"})"},
        {"\\ISO 2022 IR 58", "LO", "\x1B$)A\xD5\xC5\\a", R"("张","a")"},
        {"ISO 2022 IR 100\\ISO 2022 IR 144", "LT", "\xE4\x1B-L\xBB\x1B-A\r\n\xDF ", R"("äЛ\r\nß")"},
    };
    for (const auto& each : kCases)
    {
        SCOPED_TRACE(each.terms);
        if (kIsWindows && std::string_view(each.terms) == "GB18030")
        {
            continue; // Wine's code page has no characters of four bytes.
        }
        const std::string text = Explicit(0x00104000, each.vr, each.bytes);
        const std::string terms = each.terms;
        Write("in.dcm",
              Part10(kExplicitUid, Explicit(0x00080005, "CS", terms + (terms.size() % 2 == 1 ? " " : "")) + text));
        const std::string json = Expect(0, "dump --json in.dcm").out;
        EXPECT_TRUE(Holds(json, std::string("\"Value\": [") + each.json + "]",
                          R"("00080005": {"vr": "CS", "Value": ["ISO_IR 192"]})"));
        Write("in.json", json);
        Expect(0, "build in.json --charset \"" + terms + "\" -o built.dcm");
        std::string expected = each.bytes;
        expected.erase(expected.find_last_not_of(" =") + 1);
        EXPECT_TRUE(Holds(Read("built.dcm"), expected));
    }

    // An item has the set of the object around it, or its own.
    Write("in.dcm", Part10(kExplicitUid, Explicit(0x00080005, "CS", "ISO_IR 100") +
                                             Explicit(0x00400275, "SQ",
                                                      Item(Explicit(0x00400007, "LO", "\xE4 ")) +
                                                          Item(Explicit(0x00080005, "CS", "ISO_IR 144") +
                                                               Explicit(0x00400007, "LO", "\xBB ")))));
    EXPECT_TRUE(HoldsInOrder(Expect(0, "dump --json in.dcm").out, "\"ä\"", "\"Л\""));
    Write("in.dcm", Part10(kExplicitUid, Explicit(0x00080070, "LO", "a\xE4")));
    EXPECT_TRUE(Holds(Expect(0, "dump --json in.dcm", "U+FFFD (1 times, first in 00080070)").out, "\"a\xEF\xBF\xBD\""));
}

TEST_F(Json, OfSamplesEqualsThatOfAnotherProgram)
{
    if (Samples().empty() || std::system("which dcm2json >which.txt") != 0)
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder, or dcm2json is not installed";
    }
    for (const std::filesystem::path& path : Samples())
    {
        SCOPED_TRACE(path.filename().string());
        const SRun run = Run(kWhole + ("\"" + path.string() + "\""));
        const int status = std::system(("dcm2json \"" + path.string() + "\" >theirs.json 2>theirs.txt").c_str()) >> 8;
        constexpr int kWithoutCompressed = 81; // It ends before compressed pixel data.
        if (run.status != 0 || (status != 0 && status != kWithoutCompressed))
        {
            continue;
        }
        std::string text = Read("theirs.json");
        if (status == kWithoutCompressed)
        {
            text = text.substr(0, text.rfind(',', text.rfind("\"7FE00010\""))) + "}";
        }
        CJson theirs = CJson::parse(text);
        CJson ours = CJson::parse(run.out);
        if (status == kWithoutCompressed)
        {
            ours.erase("7FE00010");
            ours.erase("FFFCFFFC");
        }
        Align(ours, theirs);
        EXPECT_EQ(CJson::diff(theirs, ours).dump(), "[]");
    }
}

TEST_F(Json, OfSamplesMakesEqualObjects)
{
    if (Samples().empty())
    {
        GTEST_SKIP() << "VARNOTIX_SAMPLES names no folder";
    }
    for (const std::filesystem::path& path : Samples())
    {
        SCOPED_TRACE(path.filename().string());
        const std::string name = "\"" + path.string() + "\"";
        const SRun whole = Run(kWhole + name);
        if (whole.status != 0)
        {
            continue;
        }
        for (const char* options : {"--meta --inline 999999999 ", "--inline 100 "})
        {
            Run(std::string("dump --json ") + options + name, "object.json");
            Expect(0, "build object.json -q -o built.dcm");
            EXPECT_EQ(Run(kWhole + std::string("built.dcm")).out, whole.out);
        }
    }
}

TEST_F(Json, ReplacesLargeValuesByReferencesOrLeavesThemOut)
{
    const std::string frames = Encapsulated("", {"abcd", "efgh"});
    Write("in.dcm", Part10(kRleUid, Explicit(0x00280008, "IS", "2 ") + Explicit(0x00291001, "OB", "abcdef") + frames));
    EXPECT_TRUE(HoldsInOrder(Expect(0, "dump --json --inline 6 in.dcm").out, "\"InlineBinary\": \"YWJjZGVm\"",
                             R"("7FE00010": {"vr": "OB", "BulkDataURI": "file:///)", "in.dcm#7FE00010\"}"));
    const std::string out = Expect(0, "dump --json --inline 6 --no-bulk in.dcm").out;
    EXPECT_TRUE(Holds(out, "00291001"));
    EXPECT_EQ(out.find("7FE00010"), std::string::npos);
    // What comes from a pipe cannot be referred to.
    EXPECT_TRUE(
        Holds(Expect(0, "dump --json --inline 0 - <in.dcm").out, R"("7FE00010": {"vr": "OB", "InlineBinary": ")"));
    Expect(1, "dump --meta in.dcm", "--meta, --inline and --no-bulk are for JSON");
    Expect(1, "dump --json --inline -5 in.dcm", "--inline: ");
}

TEST_F(Json, BuildNamesWhatIsWrongWithADocument)
{
    Write("big.dcm", Part10(kExplicitUid, Explicit(0x00080060, "CS", "MR")));
    std::string deep;
    for (int i = 0; i < 70; ++i)
    {
        deep += R"({"00400275":{"vr":"SQ","Value":[)";
    }
    const std::pair<std::string, const char*> kCases[] = {
        {"{", "not JSON: byte"},
        {"[]", "holds no object"},
        {"{}", "it names no attributes"},
        {"[{},{}]", "more than one object"},
        {R"({"PatientName":{"vr":"PN"}})", "'PatientName' is not a tag"},
        {R"({"00100010":{"vr":"PN"},"00100010":{"vr":"PN"}})", "(0010,0010) is there twice"},
        {R"({"00100010":{"vr":"XX"}})", "(0010,0010): 'XX' is not a VR"},
        {R"({"00280010":{"vr":"US","Value":[70000]}})", "(0028,0010): '70000' cannot be a value of VR US"},
        {R"({"00280010":{"vr":"US","Value":[1.5]}})", "'1.5' cannot be"},
        {R"({"00080060":{"vr":"CS","Value":[7]}})", "'7' cannot be a value of VR CS"},
        {R"({"00080060":{"vr":"CS","Value":[true]}})", "'true' has no place here"},
        {R"({"00080060":{"vr":"CS","Value":["a\\b"]}})", "a backslash would divide"},
        {R"({"00104000":{"vr":"LT","Value":["a","b"]}})", "has one value"},
        {R"({"00280009":{"vr":"AT","Value":["0018"]}})", "'0018' cannot be a value of VR AT"},
        {R"({"00291001":{"vr":"OB","Value":[1]}})", "InlineBinary"},
        {R"({"00291001":{"vr":"OB","InlineBinary":"YW="}})", "not Base64"},
        {R"({"00291001":{"vr":"OB","BulkDataURI":"http://host/1"}})", "is not a reference into a file"},
        {R"({"00291001":{"vr":"OB","BulkDataURI":"file:///nowhere/x#00291001"}})", "cannot be read"},
        {R"({"00400275":{"vr":"SQ","Value":["x"]}})", "are items"},
        {R"({"00400275":{"vr":"SQ","Value":[{"00400007":{"vr":"US","Value":["x"]}}]}})",
         "(0040,0275)[1].(0040,0007): 'x' cannot be"},
        {R"({"00080005":{"vr":"CS","Value":["ISO_IR 100"]},"00100010":{"vr":"PN","Value":[{"Alphabetic":"Ł"}]}})",
         "(0010,0010): 'Ł' (U+0141) is not in the character set of the text, ISO_IR 100"},
        {R"({"00080060":{"vr":"CS","Value":["Ä"]}})", "(0008,0060): 'Ä' (U+00C4) is not in the character set"},
        {deep, "too deep"},
    };
    for (const auto& [json, message] : kCases)
    {
        Write("in.json", json);
        SCOPED_TRACE(json.substr(0, 100));
        Expect(20, "build in.json -o out.dcm", "varnotix: in.json: ", message);
        EXPECT_FALSE(std::filesystem::exists("out.dcm"));
    }
    Expect(1, "build in.json", "-o: ");
    // A transfer syntax that the object cannot have is not replaced without a word.
    for (const std::string uid : {"1.2.840.10008.1.2.1.99", "1.2.840.10008.1.2.4.70"})
    {
        Write("in.json",
              R"({"00020010":{"vr":"UI","Value":[")" + uid + R"("]},"00080060":{"vr":"CS","Value":["MR"]}})");
        const SRun run = Expect(0, "build in.json -o out.dcm");
        const std::string read = Expect(0, "list --plain -t TransferSyntaxUID out.dcm").out;
        EXPECT_EQ(read == uid + "\n", run.err.find(uid + " replaced by ") == std::string::npos);
    }
    // Texts beyond ASCII need a character set.
    Write("in.json", "["
                     R"({"00100010":{"Value":[{"Ideographic":"山","Alphabetic":"Ł"}]}})"
                     "]");
    Expect(0, "build in.json -q -o out.dcm");
    EXPECT_TRUE(Holds(Read("out.dcm"), Explicit(0x00080005, "CS", "ISO_IR 192"), "PN\x06", "Ł=山"));
}
