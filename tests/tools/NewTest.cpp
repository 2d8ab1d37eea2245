#include "ToolRunner.h"

#include <set>
#include <sstream>

class New : public ToolTest
{
protected:
    static std::vector<std::string> LinesOf(const std::string& text)
    {
        std::vector<std::string> lines;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);)
        {
            lines.push_back(line);
        }
        return lines;
    }
};

namespace
{

struct SKind
{
    const char* word;
    const char* sopClass;
    const char* modality;
    const char* ownLine; // What the standard asks of this kind.
};

const SKind kKinds[] = {
    {"CT", "1.2.840.10008.5.1.4.1.1.2", "CT", "0028,1052,DS,1,Rescale Intercept,[]"},
    {"MR", "1.2.840.10008.5.1.4.1.1.4", "MR", "0018,0020,CS,-1,Scanning Sequence,[]"},
    {"CR", "1.2.840.10008.5.1.4.1.1.1", "CR", "0018,5101,CS,1,View Position,[]"},
    {"NM", "1.2.840.10008.5.1.4.1.1.20", "NM", "0054,0021,US,1,Number of Detectors,[]"},
    {"US", "1.2.840.10008.5.1.4.1.1.6.1", "US", "0008,0070,LO,1,Manufacturer,[]"},
    {"US-MF", "1.2.840.10008.5.1.4.1.1.3.1", "US", "0028,0009,AT,-1,Frame Increment Pointer,[]"},
    {"SC", "1.2.840.10008.5.1.4.1.1.7", "OT", "0008,0064,CS,1,Conversion Type,[]"},
    {"SC-MF", "1.2.840.10008.5.1.4.1.1.7.4", "OT", "0028,0301,CS,1,Burned In Annotation,[]"},
};

} // namespace

TEST_F(New, OpensWhatTheKindMustHaveAndCommentsTheRestOut)
{
    for (const SKind& kind : kKinds)
    {
        const SRun run = Run(std::string("new ") + kind.word);
        ASSERT_EQ(run.status, 0) << run.err;
        const std::vector<std::string> lines = LinesOf(run.out);
        const std::set<std::string> known(lines.begin(), lines.end());
        EXPECT_TRUE(known.contains(std::string("0008,0016,UI,1,SOP Class UID,[") + kind.sopClass + ",]")) << kind.word;
        EXPECT_TRUE(known.contains(std::string("0008,0060,CS,1,Modality,[") + kind.modality + ",]")) << kind.word;
        EXPECT_TRUE(known.contains("0010,0010,PN,1,Patient's Name,[]")) << kind.word;
        EXPECT_TRUE(known.contains(kind.ownLine)) << kind.word;
        EXPECT_TRUE(known.contains(";0010,4000,LT,1,Patient Comments,[]")) << kind.word;
        EXPECT_TRUE(known.contains(";0012,0010,LO,1,Clinical Trial Sponsor Name,[]")) << kind.word;

        // A tag that several modules declare stands there once.
        std::set<std::string> tags;
        for (const std::string& line : lines)
        {
            const std::string text = line.starts_with(';') ? line.substr(1) : line;
            if (text.size() > 9 && text[4] == ',' && text[9] == ',')
            {
                EXPECT_TRUE(tags.insert(text.substr(0, 9)).second) << kind.word << ": " << line;
            }
        }
    }
}

TEST_F(New, FollowsTheOrderOfEntitiesAndModules)
{
    const std::string script = Run("new US-MF").out;
    std::size_t place = 0;
    for (const char* part :
         {"; entity File", "; entity Patient", "; module CDcmPatientModule", "; entity Study", "; entity Series",
          "; entity Equipment", "; entity Curve", "; entity Image", "0028,0002,US", "; module CDcmUSImageModule\n",
          "; module CDcmVioLutModule, optional", "; module CDcmCineModule\n",
          "; module CDcmMultiFrameModule\n;   needs values: Number of Frames"})
    {
        const std::size_t found = script.find(part, place);
        ASSERT_NE(found, std::string::npos) << part << " does not follow in:\n" << script;
        place = found;
    }
}

TEST_F(New, NamesEachObjectAnew)
{
    const auto instance = [](const std::string& script)
    {
        const std::string start = "0008,0018,UI,1,SOP Instance UID,[2.25.";
        const std::size_t begin = script.find(start);
        return begin == std::string::npos
                   ? std::string()
                   : script.substr(begin + start.size(), script.find(',', begin + start.size()) - begin - start.size());
    };
    ASSERT_EQ(Run("new CT -o first.asl").status, 0);
    const std::string first = instance(Read("first.asl"));
    const std::string second = instance(Run("new CT").out);
    EXPECT_NE(first, second);
    for (const std::string& digits : {first, second})
    {
        EXPECT_FALSE(digits.empty());
        EXPECT_LE(digits.size(), 39U);
        EXPECT_NE(digits[0], '0');
        EXPECT_EQ(digits.find_first_not_of("0123456789"), std::string::npos);
    }
}

TEST_F(New, RefusesAnUnknownKindAndKeepsTheOldScript)
{
    Write("old.asl", "old");
    EXPECT_EQ(Run("new XY -o old.asl").status, 1);
    EXPECT_EQ(Run("new CT -o no-folder/script.asl").status, 40);
    EXPECT_EQ(Read("old.asl"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}
