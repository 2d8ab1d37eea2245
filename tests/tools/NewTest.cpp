#include "ToolRunner.h"

#include <regex>
#include <set>

using New = ToolTest;

TEST_F(New, OpensWhatTheKindMustHaveAndCommentsTheRestOut)
{
    const std::string script = "\n" + Expect(0, "new CT").out;
    EXPECT_TRUE(Holds(script, "\n0008,0016,UI,1,SOP Class UID,[1.2.840.10008.5.1.4.1.1.2,]\n",
                      "\n0008,0060,CS,1,Modality,[CT,]\n", "\n0010,0010,PN,1,Patient's Name,[]\n",
                      "\n0028,1052,DS,1,Rescale Intercept,[]\n", "\n;0010,4000,LT,1,Patient Comments,[]\n",
                      "\n;0012,0010,LO,1,Clinical Trial Sponsor Name,[]\n"));
    // A tag that several modules declare is there once.
    std::set<std::string> tags;
    const std::regex tag("\n;?(....,....),");
    for (std::sregex_iterator match(script.begin(), script.end(), tag), end; match != end; ++match)
    {
        EXPECT_TRUE(tags.insert((*match)[1]).second) << (*match)[1];
    }
    // Each object has a UID of its own.
    const std::regex uid("\n0008,0018,UI,1,SOP Instance UID,\\[2\\.25\\.[1-9][0-9]{0,38},\\]\n");
    std::smatch first;
    ASSERT_TRUE(std::regex_search(script, first, uid)) << script;
    EXPECT_EQ(Run("new CT").out.find(first.str()), std::string::npos);
}

TEST_F(New, FollowsTheOrderOfEntitiesAndModules)
{
    EXPECT_TRUE(HoldsInOrder(Run("new US-MF").out, "; entity File", "; entity Patient", "; module CDcmPatientModule",
                             "; entity Study", "; entity Series", "; entity Equipment", "; entity Curve",
                             "; entity Image", "0028,0002,US", "; module CDcmUSImageModule\n",
                             "; module CDcmVioLutModule, optional", "; module CDcmCineModule\n",
                             "; module CDcmMultiFrameModule\n;   needs values: Number of Frames"));
}

TEST_F(New, RefusesAnUnknownKindAndKeepsTheOldScript)
{
    Write("old.asl", "old");
    Expect(1, "new XY -o old.asl");
    Expect(40, "new CT -o no-folder/script.asl");
    EXPECT_EQ(Read("old.asl"), "old");
    EXPECT_EQ(CountTemporaries(), 0);
}
