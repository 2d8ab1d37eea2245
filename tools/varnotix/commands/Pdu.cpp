#include "commands/Commands.h"
#include "pdu/PduVerb.h"

namespace
{

constexpr const char* kFooter =
    "PDUs follow one another as on a connection. In text, white space, commas, colons and '0x' may separate the\n"
    "pairs of digits, and '#' starts a comment. Bytes that are not a valid PDU are reported on standard error, with\n"
    "their offset and status 20; what comes before them is printed.";

struct SPduOptions
{
    SInputs inputs;
    bool showFields = false;
};

} // namespace

void AddPdu(CCommandLine& line)
{
    const auto options = std::make_shared<SPduOptions>();
    CVerb verb = line.AddVerb("pdu", "Print what association PDUs hold", kFooter);
    verb.Inputs(options->inputs, "PDUs as bytes or in hexadecimal digits; '-', or no file, is standard input",
                CVerb::ENeed::Optional);
    verb.Flag("--fields", options->showFields, "Print each field with its offset and its bytes");
    verb.Action(
        [options](const CReport& report)
        {
            SInputs& inputs = options->inputs;
            inputs.takesAnyFile = true;
            if (inputs.names.empty())
            {
                inputs.names.emplace_back("-");
            }
            const auto show = [&](const SJob& job) { return ShowPdus(job, options->showFields); };
            return RunInputs(inputs, report, "could not be read to their end", show);
        });
}
