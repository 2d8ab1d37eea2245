// Files of the project, and its programs as they run.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

inline std::filesystem::path FolderOf(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : ".";
}

/// The folder that holds README.md.
inline std::filesystem::path ProjectFolder()
{
    return FolderOf("VARNOTIX_DATA").parent_path();
}

/// The folder of sample files; empty when there is none.
inline std::filesystem::path SampleFolder()
{
    const char* value = std::getenv("VARNOTIX_SAMPLES");
    return value != nullptr && std::filesystem::is_directory(value) ? value : "";
}

inline std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Whether the programs are those of Windows, which the tests run under Wine.
inline constexpr bool kIsWindows = std::filesystem::path::preferred_separator == '\\';

/// The standard output of the program that ran last, with the line ends of C.
inline std::string ReadOutput()
{
    std::string text = ReadText("out.txt");
    std::erase(text, '\r');
    return text;
}

/// Arguments that are quoted for a POSIX shell, as the shell of Windows takes them.
inline std::string QuotedForWindows(const std::string& arguments)
{
    std::string quoted;
    char quote = 0;
    for (const char c : arguments)
    {
        const bool isQuote = quote == 0 ? c == '\'' || c == '"' : c == quote;
        if (isQuote)
        {
            quote = quote == 0 ? c : '\0';
        }
        quoted += isQuote ? "\"" : quote == 0 && c == '^' ? "^^" : c == '"' ? "\\\"" : std::string(1, c);
    }
    return quoted;
}

/// The status of a program that is run with its standard output in a file or device and its errors in err.txt.
/// @param limit a command of the shell, to run before: "ulimit -f 8".
inline int StatusOf(const std::string& program, const std::string& arguments, const std::string& out = "out.txt",
                    const std::string& limit = "")
{
    std::string command = limit + (limit.empty() ? "\"" : " && \"") + (FolderOf("VARNOTIX_BIN") / program).string() +
                          "\" " + (kIsWindows ? QuotedForWindows(arguments) : arguments) + " >" + out + " 2>err.txt";
    if (kIsWindows)
    {
        command = "\"" + command + "\""; // The shell there takes off the outermost quotes.
    }
    const int status = std::system(command.c_str());
    return status > 0xFF ? status >> 8 : status;
}
