#include "ToolRunner.h"

#include <regex>
#include <set>

using New = ToolTest;

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
        SCOPED_TRACE(kind.word);
        const std::string script = "\n" + Expect(0, std::string("new ") + kind.word).out;
        EXPECT_TRUE(Holds(script, std::string("\n0008,0016,UI,1,SOP Class UID,[") + kind.sopClass + ",]\n",
                          std::string("\n0008,0060,CS,1,Modality,[") + kind.modality + ",]\n",
                          "\n0010,0010,PN,1,Patient's Name,[]\n", std::string("\n") + kind.ownLine + "\n",
                          "\n;0010,4000,LT,1,Patient Comments,[]\n",
                          "\n;0012,0010,LO,1,Clinical Trial Sponsor Name,[]\n"));
        // A tag that several modules declare stands there once.
        std::set<std::string> tags;
        const std::regex tag("\n;?(....,....),");
        for (std::sregex_iterator match(script.begin(), script.end(), tag), end; match != end; ++match)
        {
            EXPECT_TRUE(tags.insert((*match)[1]).second) << (*match)[1];
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
    Expect(0, "new CT -o first.asl");
    const std::regex uid("\n0008,0018,UI,1,SOP Instance UID,\\[2\\.25\\.([1-9][0-9]{0,38}),\\]\n");
    std::set<std::string> made;
    for (const std::string& script : {Read("first.asl"), Run("new CT").out})
    {
        std::smatch match;
        ASSERT_TRUE(std::regex_search(script, match, uid)) << script;
        EXPECT_TRUE(made.insert(match[1]).second);
    }
}

TEST_F(New, RefusesAnUnknownKindAndKeepsTheOldScript)
{
    Write("old.asl", "old");
    Expect(1, "new XY -o old.asl");
    Expect(40, "new CT -o no-folder/script.asl");
    EXPECT_EQ(Read("old.asl"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}
