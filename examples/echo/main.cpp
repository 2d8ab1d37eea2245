// A complete network host: DICOM's "ping". The library makes and reads the PDUs and the command sets; the host has the
// connection.

#include "Echo.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string_view>

namespace
{

constexpr const char* kUsage =
    "usage: example_echo [OPTION...] HOST PORT       sends a C-ECHO\n"
    "       example_echo [OPTION...] --listen PORT   answers C-ECHO on the loopback interface; port 0 selects a "
    "free one\n"
    "  --called TITLE    AE title to call (ANY-SCP); of a listener: the only one that it accepts\n"
    "  --calling TITLE   own AE title (VARNOTIX)\n"
    "  --timeout SECONDS limit on each wait for the other side (10)\n"
    "  --count NUMBER    ends the listener after so many connections\n"
    "  --idle SECONDS    ends the listener after this time without a call\n";

constexpr int kDone = 0;
constexpr int kUsageStatus = 1;
constexpr int kFailed = 2;

bool ReadNumber(std::string_view text, int largest, int& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= 0 && number <= largest;
}

bool ReadSeconds(std::string_view text, std::chrono::seconds& seconds)
{
    int number = 0;
    const bool isNumber = ReadNumber(text, 86400, number);
    seconds = std::chrono::seconds(number);
    return isNumber;
}

/// @return false when the command line is not valid.
bool ReadArguments(int count, char** texts, SEchoOptions& options, bool& listens)
{
    int places = 0;
    for (int i = 1; i < count; ++i)
    {
        const std::string_view name = texts[i];
        if (!name.starts_with("--"))
        {
            (places == 0 ? options.host : options.port) = name;
            ++places;
            continue;
        }
        if (i + 1 == count)
        {
            return false;
        }
        const std::string_view value = texts[++i];
        bool fits = true;
        if (name == "--listen")
        {
            listens = true;
            options.port = value;
        }
        else if (name == "--called")
        {
            options.calledTitle = value;
            options.ownTitle = value;
        }
        else if (name == "--calling")
        {
            options.callingTitle = value;
        }
        else if (name == "--timeout")
        {
            fits = ReadSeconds(value, options.timeout);
        }
        else if (name == "--idle")
        {
            fits = ReadSeconds(value, options.idle);
        }
        else
        {
            fits = name == "--count" && ReadNumber(value, 1000000, options.count);
        }
        if (!fits)
        {
            return false;
        }
    }
    int port = 0;
    return places == (listens ? 0 : 2) && ReadNumber(options.port, 65535, port);
}

} // namespace

int main(int count, char** texts)
{
    SEchoOptions options;
    bool listens = false;
    if (!ReadArguments(count, texts, options, listens))
    {
        std::fputs(kUsage, stderr);
        return kUsageStatus;
    }
    InitDicomDLL();
    try
    {
        // Command sets are data sets: without the dictionary the library cannot write their elements.
        if (CDcmRegistry::Global().DictionarySize() == 0)
        {
            throw CEchoFailure("dictionary.txt was not found");
        }
        if (listens)
        {
            RunListener(options);
        }
        else
        {
            RunClient(options);
        }
        return kDone;
    }
    catch (const CException& failure)
    {
        std::fprintf(stderr, "example_echo: %s\n", static_cast<const char*>(failure.GetErrorMessage()));
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "example_echo: %s\n", failure.what());
    }
    return kFailed;
}
