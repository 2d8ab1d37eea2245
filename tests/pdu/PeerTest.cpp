// The network host against the tools of another toolkit, over the loopback interface.
#if defined(VARNOTIX_TEST_ECHO)

#include "ChildProcess.h"
#include "GoldenPdus.h"
#include "LoopbackPeer.h"
#include "Programs.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

std::string EchoProgram()
{
    return (FolderOf("VARNOTIX_BIN") / "example_echo").string();
}

/// A listener of ours that ends by itself, whatever becomes of the test.
class CListener : public CChildProcess
{
public:
    explicit CListener(const std::string& more = "")
        : CChildProcess(EchoProgram() + " --listen 0 --count 1 --idle 20 " + more)
    {
        const std::string line = ReadLine();
        const std::string start = "listening on port ";
        m_port = line.starts_with(start) ? line.substr(start.size(), line.size() - start.size() - 1) : "0";
    }
    const std::string& Port() const { return m_port; }

private:
    std::string m_port;
};

class PeerTest : public testing::Test
{
protected:
    /// Runs a server of the toolkit and our client against it, and returns what the client said.
    static std::string EchoTo(const std::string& server)
    {
        // The server opens its port some time after it starts, and the port may be lost to somebody else before.
        for (int attempt = 0; attempt < 3; ++attempt)
        {
            const std::string port = FreePort();
            const CChildProcess peer(server + " " + port);
            if (WaitForListener(port))
            {
                return CChildProcess(EchoProgram() + " --timeout 20 127.0.0.1 " + port).ReadAll();
            }
        }
        return "the server did not start";
    }

    /// Our client's words about a server that answers the association request with the bytes.
    static std::string EchoToAnswer(const CByteArray& answer)
    {
        CSocketPort port;
        std::thread server([&] { port.AnswerOne(answer); });
        const std::string said = CChildProcess(EchoProgram() + " --timeout 20 127.0.0.1 " + port.Number()).ReadAll();
        server.join();
        return said;
    }

    /// What our listener said of a caller that sends the bytes and reads until the connection ends.
    static std::string ListenTo(const CByteArray& bytes, CByteArray& answer)
    {
        CListener listener("--timeout 20");
        answer = CallWith(listener.Port(), bytes);
        return listener.ReadAll();
    }
};

} // namespace

TEST_F(PeerTest, OurClientEchoesToStorescp)
{
    if (!IsInstalled("storescp"))
    {
        GTEST_SKIP() << "storescp is missing (Debian's dcmtk)";
    }
    EXPECT_EQ(EchoTo("storescp"), "C-ECHO response to message 1: status 0000H, success\nreleased\n");
}

TEST_F(PeerTest, EchoscuEchoesToOurListener)
{
    if (!IsInstalled("echoscu"))
    {
        GTEST_SKIP() << "echoscu is missing (Debian's dcmtk)";
    }
    CListener listener;
    // Several transfer syntaxes and contexts, and several messages in one association.
    CChildProcess peer("echoscu -to 20 -pts 3 -ppc 2 --repeat 2 -aet PEER -aec VARNOTIX 127.0.0.1 " + listener.Port());
    EXPECT_EQ(peer.ReadAll(), "");
    EXPECT_EQ(peer.Status(), 0);
    EXPECT_EQ(listener.ReadAll(),
              "association from 'PEER' to 'VARNOTIX'\nC-ECHO 1 answered\nC-ECHO 2 answered\nreleased\n");
    EXPECT_EQ(listener.Status(), 0);

    // It learns from our listener why it is rejected.
    CListener other("--called SOMEBODY");
    CChildProcess stranger("echoscu -to 20 -aec OTHER 127.0.0.1 " + other.Port());
    const std::string said = stranger.ReadAll();
    EXPECT_NE(said.find("Called AE Title Not Recognized"), std::string::npos) << said;
    EXPECT_NE(stranger.Status(), 0);
    EXPECT_EQ(other.ReadAll(), "the association was rejected: result rejected permanently (1), source service user "
                               "(1), reason called AE title not recognized (7)\n");
}

TEST_F(PeerTest, OurTwoSidesEchoToEachOther)
{
    CListener listener;
    CChildProcess client(EchoProgram() + " --calling ME --called YOU 127.0.0.1 " + listener.Port());
    EXPECT_EQ(client.ReadAll(), "C-ECHO response to message 1: status 0000H, success\nreleased\n");
    EXPECT_EQ(client.Status(), 0);
    EXPECT_EQ(listener.ReadAll(), "association from 'ME' to 'YOU'\nC-ECHO 1 answered\nreleased\n");
}

TEST_F(PeerTest, OurClientTellsEveryOtherEndInWords)
{
    EXPECT_EQ(EchoToAnswer(AbortBytes()), "example_echo: the association was aborted: source service provider (2), "
                                          "reason invalid PDU parameter value (6)\n");
    EXPECT_EQ(EchoToAnswer(RejectBytes()), "example_echo: the association was rejected: result rejected permanently "
                                           "(1), source service provider (ACSE) (2), reason unknown (7)\n");
    EXPECT_EQ(EchoToAnswer(ReleaseBytes(6)), "example_echo: a PDU came that was not expected: type A-RELEASE-RP (6)\n");
    EXPECT_EQ(EchoToAnswer(CByteArray()),
              "example_echo: the other side closed the connection instead of sending A-ASSOCIATE-AC\n");
    EXPECT_EQ(EchoToAnswer(Bytes({2, 0, 0xFF, 0xFF, 0xFF, 0xFF})),
              "example_echo: a PDU of 4294967295 bytes is longer than the 16384 that were agreed on\n");
}

TEST_F(PeerTest, OurListenerAbortsWhatItDoesNotExpect)
{
    CByteArray answer;
    EXPECT_EQ(ListenTo(ReleaseBytes(5), answer), "a PDU came that was not expected: type A-RELEASE-RQ (5)\n");
    EXPECT_EQ(Numbers(answer), Numbers(Bytes({7, 0, 0, 0, 0, 4, 0, 0, 2, 2})));
    EXPECT_EQ(ListenTo(Bytes({0x47, 0x45, 0, 0, 0, 0}), answer),
              "a PDU came that was not expected: type unknown (71)\n");
    EXPECT_EQ(Numbers(answer), Numbers(Bytes({7, 0, 0, 0, 0, 4, 0, 0, 2, 2})));
}

#endif
