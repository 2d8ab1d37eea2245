/// The command line: verbs, their options, and how arguments become a run of one verb.
///
/// Only CommandLine.cpp sees the parser's headers, which are slow to compile.
#pragma once

#include "files/Inputs.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

class CCommandLine;

/// One verb, to be given options and an action. Arguments are stored in variables that must outlive CCommandLine::Run;
/// a verb keeps them in a structure that its action shares.
///
/// Help lists options in the order in which they are added. Names are those of the parser: "-o,--output" or, for an
/// argument by position, "FILE".
class CVerb
{
public:
    enum class ENeed
    {
        Required,
        Optional
    };

    CVerb(CLI::App& verb, CCommandLine& line) : m_verb(verb), m_line(line) {}

    /// One value. The variable keeps what it holds when the option is absent.
    void Text(const char* name, CString& value, const char* help, ENeed need = ENeed::Required);
    /// As Text, and help shows what the variable holds now.
    void TextWithDefault(const char* name, CString& value, const char* help);
    /// One or more values, or any number of an optional one. An option takes one value each time that it is given.
    void Texts(const char* name, std::vector<CString>& values, const char* help, ENeed need = ENeed::Required);
    /// As Texts for an option that takes one value each time that it is given.
    void Repeated(const char* name, std::vector<CString>& values, const char* help);
    /// The inputs of a verb that takes many: "FILE..." and the options "--recursive" and "--jobs".
    /// @param inputs whose entersFolders is set takes folders without "--recursive", too.
    void Inputs(SInputs& inputs, const char* help, ENeed need = ENeed::Required);
    /// One of the words.
    void Choice(const char* name, CString& value, const std::vector<std::string>& words, const char* help,
                ENeed need = ENeed::Required);
    /// The option "--syntax" and its words. The value is one of ESyntax, or kSyntaxDeflated.
    void Syntax(int& syntax, const char* help, ENeed need);
    void Flag(const char* name, bool& value, const char* help);
    /// A whole number from 0 on; help shows what the variable holds now.
    void Number(const char* name, std::size_t& value, const char* help);
    /// Adds "--quiet" and "--verbose", for verbs that print messages besides errors.
    void MessageFlags();

    /// Sets what the verb does, and adds "--classic".
    /// @param action returns an exit status (see EStatus). Exceptions pass through CCommandLine::Run.
    void Action(const std::function<int(const CReport&)>& action);
    /// The same for a function that takes the verb's options.
    template <class OPTIONS, class TAKEN>
    void Action(const std::shared_ptr<OPTIONS>& options, int (*action)(TAKEN&, const CReport&))
    {
        Action([options, action](const CReport& report) { return action(*options, report); });
    }

private:
    CLI::App& m_verb;
    CCommandLine& m_line;
};

/// The program's command line.
class CCommandLine
{
public:
    /// @param footer is shown below the list of verbs.
    CCommandLine(const char* summary, const char* footer);
    ~CCommandLine();
    CCommandLine(const CCommandLine&) = delete;
    CCommandLine& operator=(const CCommandLine&) = delete;

    /// Help lists verbs in the order in which they are added.
    /// @param footer is shown below the verb's options; null: the program's.
    CVerb AddVerb(const char* name, const char* summary, const char* footer = nullptr);

    /// Runs the verb that the arguments name, or prints help, the version, or what is wrong with the arguments.
    /// @return an exit status.
    int Run(int count, char** texts);

private:
    friend class CVerb;

    bool KnowsVerb(const std::string& given) const;

    std::unique_ptr<CLI::App> m_app;
    bool m_quiet = false;
    bool m_verbose = false;
    bool m_classic = false;
    int m_status = STATUS_DONE;
};
