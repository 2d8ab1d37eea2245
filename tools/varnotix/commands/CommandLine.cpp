#include "commands/CommandLine.h"

#include "Varnotix/Version.h"
#include "console/NearestWord.h"
#include "console/StandardStreams.h"
#include "files/FileKinds.h"
#include "files/Input.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <sstream>

namespace
{

constexpr const char* kClassic = "Read and write by the class library's own rules instead of DICOM's";

/// Begins an argument that is a name or a value whatever it looks like. The parser itself takes "[a,b]" apart, drops
/// "++", and knows no dash after "--" where FILE has a value before.
constexpr char kPlainMark = '\x01';

/// Help and version are data; complaints about the command line are not.
/// @param verb empty where the arguments name none.
int PrintParseResult(const CLI::App& app, const CLI::ParseError& result, const std::string& verb)
{
    std::ostringstream out;
    std::ostringstream complaint;
    const int code = app.exit(result, out, complaint);
    if (code != 0)
    {
        // The first line of the parser's complaint is what is wrong; the next one does not name the verb.
        std::string text = complaint.str();
        std::erase(text, kPlainMark);
        const CReport report(false, false);
        report.Error(CString(std::string_view(text.substr(0, text.find('\n')))));
        report.ErrorLine(
            CString(std::string_view("'varnotix " + verb + (verb.empty() ? "" : " ") + "--help' shows the usage.")));
        return STATUS_USAGE;
    }
    WriteStandardOutput(out.view());
    FlushStandardOutput();
    return STATUS_DONE;
}

bool LooksSpecial(const std::string& text)
{
    return text.starts_with('[') || text.starts_with(kPlainMark) || text == "++";
}

/// The arguments after the program's name, last first, as the parser takes them. An option with an empty value after
/// its "=" becomes two arguments, because the parser would take the next argument for its value.
std::vector<std::string> ReversedArguments(int count, char** texts)
{
    std::vector<std::string> arguments;
    bool areNames = false;
    for (int i = 1; i < count; ++i)
    {
        const std::string text = texts[i];
        if (text == "--" && !areNames)
        {
            areNames = true;
        }
        else if (LooksSpecial(text) || (areNames && text.size() > 1 && text.starts_with('-')))
        {
            arguments.push_back(kPlainMark + text);
        }
        else if (text.starts_with("--") && text.find('=') == text.size() - 1)
        {
            arguments.push_back(text.substr(0, text.size() - 1));
            arguments.emplace_back();
        }
        else
        {
            arguments.push_back(text);
        }
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

/// What an argument says without its mark.
CString Plain(std::string_view text)
{
    return CString(text.substr(text.starts_with(kPlainMark) ? 1 : 0));
}

CLI::Option& AddText(CLI::App& verb, const char* name, CString& value, const char* help, CVerb::ENeed need)
{
    const auto take = [&value](const std::string& text) { value = Plain(text); };
    return *verb.add_option_function<std::string>(name, take, help)->required(need == CVerb::ENeed::Required);
}

auto TakeInto(std::vector<CString>& values)
{
    return [&values](const std::vector<std::string>& texts)
    { std::transform(texts.begin(), texts.end(), std::back_inserter(values), &Plain); };
}

} // namespace

void CVerb::Text(const char* name, CString& value, const char* help, ENeed need)
{
    CLI::Option& option = AddText(m_verb, name, value, help, need);
    if (option.check_lname("output"))
    {
        // A script may have no value in the variable that names it; set would edit in place then.
        option.check([](const std::string& text) { return text.empty() ? "the name is empty" : ""; });
    }
}

void CVerb::TextWithDefault(const char* name, CString& value, const char* help)
{
    AddText(m_verb, name, value, help, ENeed::Optional).default_str(std::string(value.CText()));
}

void CVerb::Texts(const char* name, std::vector<CString>& values, const char* help, ENeed need)
{
    m_verb.add_option_function<std::vector<std::string>>(name, TakeInto(values), help)
        ->required(need == ENeed::Required)
        ->allow_extra_args(*name != '-'); // What follows the value of an option may be a FILE.
}

void CVerb::Repeated(const char* name, std::vector<CString>& values, const char* help)
{
    m_verb.add_option_function<std::vector<std::string>>(name, TakeInto(values), help)->allow_extra_args(false);
}

void CVerb::Inputs(SInputs& inputs, const char* help, ENeed need)
{
    constexpr int kMostJobs = 256;
    Texts("FILE", inputs.names, help, need);
    m_verb.add_flag("-r,--recursive", inputs.entersFolders,
                    "Take folders, too: the DICOM files in them, at every depth");
    m_verb.add_option("-j,--jobs", inputs.jobs, "How many inputs to work on at a time; 0: one per processor")
        ->check(CLI::Range(0, kMostJobs));
}

void CVerb::Choice(const char* name, CString& value, const std::vector<std::string>& words, const char* help,
                   ENeed need)
{
    AddText(m_verb, name, value, help, need).check(CLI::IsMember(words));
}

void CVerb::Syntax(int& syntax, const char* help, ENeed need)
{
    const auto take = [&syntax](const std::string& word)
    {
        static const std::map<std::string, int> kSyntaxes = {{"implicit", SYNTAX_IMPLICIT_LITTLE},
                                                             {"explicit", SYNTAX_EXPLICIT_LITTLE},
                                                             {"big", SYNTAX_EXPLICIT_BIG},
                                                             {"deflated", kSyntaxDeflated}};
        syntax = kSyntaxes.at(word);
    };
    m_verb.add_option_function<std::string>("-s,--syntax", take, help)
        ->required(need == ENeed::Required)
        ->check(CLI::IsMember({"implicit", "explicit", "big", "deflated"}));
}

void CVerb::Flag(const char* name, bool& value, const char* help)
{
    m_verb.add_flag(name, value, help);
}

void CVerb::Number(const char* name, std::size_t& value, const char* help)
{
    m_verb.add_option(name, value, help)->check(CLI::NonNegativeNumber)->capture_default_str();
}

void CVerb::MessageFlags()
{
    CLI::Option* quiet = m_verb.add_flag("-q,--quiet", m_line.m_quiet, "Print errors only");
    m_verb.add_flag("-v,--verbose", m_line.m_verbose, "Print details")->excludes(quiet);
}

void CVerb::Action(const std::function<int(const CReport&)>& action)
{
    m_verb.add_flag("--classic", m_line.m_classic, kClassic);
    m_verb.callback(
        [&line = m_line, action]
        {
            ChooseStreamRules(line.m_classic ? STREAM_RULES_CLASSIC : STREAM_RULES_STANDARD);
            line.m_status = action(CReport(line.m_quiet, line.m_verbose));
        });
}

CCommandLine::CCommandLine(const char* summary, const char* footer)
    : m_app(std::make_unique<CLI::App>(summary, "varnotix"))
{
    m_app->set_version_flag("--version", std::string("varnotix ") + VARNOTIX_VERSION);
    // The verbs have the flag as well, so that it may come before or after them.
    m_app->add_flag("--classic", m_classic, kClassic);
    m_app->require_subcommand(1);
    m_app->footer(footer);
}

CCommandLine::~CCommandLine() = default;

CVerb CCommandLine::AddVerb(const char* name, const char* summary, const char* footer)
{
    CLI::App* verb = m_app->add_subcommand(name, summary);
    if (footer != nullptr)
    {
        verb->footer(footer);
    }
    return {*verb, *this};
}

/// Reports a missing or unknown verb; the parser does not distinguish them.
bool CCommandLine::KnowsVerb(const std::string& given) const
{
    std::vector<std::string> verbs;
    std::string list;
    for (const CLI::App* verb : m_app->get_subcommands(nullptr))
    {
        verbs.push_back(verb->get_name());
        list += (list.empty() ? "" : ", ") + verb->get_name();
    }
    if (std::find(verbs.begin(), verbs.end(), given) != verbs.end())
    {
        return true;
    }
    std::string wrong = given.empty() ? "there is no verb on the command line" : "there is no verb '" + given + "'";
    const EFileKind kind = given.empty() ? EFileKind::Missing : FileKindOf(CString(std::string_view(given)));
    if (kind != EFileKind::Missing)
    {
        const std::string dump = kind == EFileKind::Folder ? "varnotix list " : "varnotix dump ";
        wrong = "there is no verb before '" + given + "'; '" + dump + given + "' shows what is in it";
    }
    else if (const std::string nearest = NearestWord(given, verbs); !given.empty() && !nearest.empty())
    {
        wrong += "; the nearest one is '" + nearest + "'";
    }
    const CReport report(false, false);
    report.Error(CString(std::string_view(wrong)));
    report.ErrorLine(CString(std::string_view("The verbs are " + list + ".")));
    report.ErrorLine("'varnotix --help' shows what they do.");
    return false;
}

int CCommandLine::Run(int count, char** texts)
{
    std::vector<std::string> reversed = ReversedArguments(count, texts);
    if (!reversed.empty() && reversed.back() == "help")
    {
        // "help dump" is what many programs take for "dump --help".
        reversed.pop_back();
        reversed.insert(reversed.begin(), "--help");
    }
    const auto isWord = [](const std::string& text) { return !text.starts_with("-"); };
    const auto isHelp = [](const std::string& text) { return text == "-h" || text == "--help" || text == "--version"; };
    const auto word = std::find_if(reversed.rbegin(), reversed.rend(), isWord);
    const std::string verb = word == reversed.rend() ? std::string() : *word;
    const bool asksForHelp = verb.empty() && std::any_of(reversed.begin(), reversed.end(), isHelp);
    if (!asksForHelp && !KnowsVerb(verb))
    {
        return STATUS_USAGE;
    }
    try
    {
        m_app->parse(std::move(reversed));
        return m_status;
    }
    catch (const CLI::ParseError& result)
    {
        return PrintParseResult(*m_app, result, verb);
    }
}
