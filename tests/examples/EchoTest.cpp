// The network host against another toolkit's tools and against damaged PDUs, over the loopback interface.
#if defined(VARNOTIX_TEST_ECHO)

#include "Programs.h"

#include <gtest/gtest.h>

#include <asio.hpp>
#include <cstdio>

namespace
{

bool IsInstalled(const std::string& program)
{
    return std::system(("which " + program + " >/dev/null").c_str()) == 0;
}

std::string EchoProgram()
{
    return (FolderOf("VARNOTIX_BIN") / "example_echo").string();
}

/// A listener for one association, which ends by itself.
class CListener
{
public:
    explicit CListener(const std::string& more = "")
        : m_pipe(popen((EchoProgram() + " --listen 0 --count 1 --idle 20 --timeout 20 " + more).c_str(), "r"))
    {
        const std::string line = ReadLine();
        m_port = line.substr(line.find_last_of(' ') + 1, 5);
    }
    CListener(const CListener&) = delete;
    CListener& operator=(const CListener&) = delete;
    ~CListener() { pclose(m_pipe); }

    int Port() const { return std::stoi(m_port); }
    std::string ReadAll()
    {
        std::string text;
        for (std::string line; !(line = ReadLine()).empty();)
        {
            text += line;
        }
        return text;
    }

private:
    std::string ReadLine()
    {
        char line[512] = {};
        return std::fgets(line, sizeof line, m_pipe) != nullptr ? line : "";
    }

    FILE* m_pipe;
    std::string m_port;
};

/// Runs echoscu against the listener and returns its exit status; its output is in out.txt.
int RunEchoscu(const CListener& listener, const std::string& options)
{
    const std::string command = "echoscu -to 20 " + options + " 127.0.0.1 " + std::to_string(listener.Port());
    return std::system((command + " >out.txt 2>&1").c_str());
}

/// Sends the bytes to a new listener, and returns its answer followed by its log.
std::string AnswerTo(const std::string& bytes)
{
    CListener listener;
    asio::ip::tcp::iostream caller;
    caller.expires_after(std::chrono::seconds(30));
    caller.connect("127.0.0.1", std::to_string(listener.Port()));
    caller << bytes << std::flush;
    const std::string answer{std::istreambuf_iterator<char>(caller), {}};
    return answer + listener.ReadAll();
}

/// An A-ABORT by the service provider.
std::string Abort(char reason)
{
    return std::string("\7\0\0\0\0\4\0\0\2", 9) + reason;
}

} // namespace

TEST(ExampleEcho, ClientEchoesToStorescp)
{
    if (!IsInstalled("storescp"))
    {
        GTEST_SKIP() << "storescp is missing (Debian's dcmtk)";
    }
    asio::io_context context;
    const auto port = asio::ip::tcp::acceptor(context, {asio::ip::address_v4::loopback(), 0}).local_endpoint().port();
    // The server opens its port some time after it starts.
    const std::string script =
        "port=" + std::to_string(port) + "; timeout 60 storescp $port & server=$!; for attempt in $(seq 100); do " +
        EchoProgram() + " 127.0.0.1 $port >out.txt 2>err.txt && break; sleep 0.1; done; kill $server";
    EXPECT_EQ(std::system(script.c_str()), 0);
    EXPECT_EQ(ReadOutput(), "C-ECHO response to message 1: status 0000H, success\nreleased\n") << ReadText("err.txt");
}

TEST(ExampleEcho, ListenerAnswersEchoscu)
{
    if (!IsInstalled("echoscu"))
    {
        GTEST_SKIP() << "echoscu is missing (Debian's dcmtk)";
    }
    const std::string log = "association from 'PEER' to 'VARNOTIX'\nC-ECHO 1 answered\nC-ECHO 2 answered\nreleased\n";
    // The second request has more than 100,000 bytes: the maximum length bounds P-DATA-TF only.
    for (const char* contexts : {"-pts 3 -ppc 2", "-pts 38 -ppc 128"})
    {
        CListener listener;
        EXPECT_EQ(RunEchoscu(listener, std::string("--repeat 2 -aet PEER -aec VARNOTIX ") + contexts), 0);
        EXPECT_EQ(ReadOutput(), "");
        EXPECT_EQ(listener.ReadAll(), log) << contexts;
    }
    CListener other("--called SOMEBODY");
    EXPECT_NE(RunEchoscu(other, "-aec OTHER"), 0);
    EXPECT_NE(ReadOutput().find("Called AE Title Not Recognized"), std::string::npos);
    EXPECT_EQ(other.ReadAll(), "the association was rejected: result rejected permanently (1), source service user "
                               "(1), reason called AE title not recognized (7)\n");
}

TEST(ExampleEcho, ListenerAbortsWithTheReasonOfTheStandard)
{
    EXPECT_EQ(AnswerTo({"\5\0\0\0\0\4\0\0\0\0", 10}), Abort(2) + "unexpected PDU: type A-RELEASE-RQ (5)\n");
    EXPECT_EQ(AnswerTo({"GE\0\0\0\0", 6}), Abort(1) + "PDU of unknown type 71\n");
    EXPECT_EQ(AnswerTo({"\4\0\0\0\x40\1", 6}), Abort(6) + "P-DATA-TF of 16385 bytes exceeds the limit of 16384\n");
    EXPECT_EQ(AnswerTo({"\1\0\xFF\xFF\xFF\xFF", 6}),
              Abort(6) + "A-ASSOCIATE-RQ of 4294967295 bytes exceeds the limit of 1048576\n");
}

#endif
