#include "commands/Commands.h"
#include "deid/DeidRun.h"
#include "files/Input.h"
#include "files/OutputFolder.h"
#include "rewrite/CheckedWrite.h"

namespace
{

constexpr const char* kFooter =
    "Applies the Basic Application Level Confidentiality Profile of PS3.15 Annex E at every depth: attributes are\n"
    "removed, emptied or replaced, and UIDs replaced so that references still match. Private attributes go. Outputs\n"
    "are FOLDER/PATIENT/STUDY/SERIES/OBJECT.dcm, all new names. The same key gives the same new values in every run;\n"
    "without --key a run has one of its own. Objects in which faces, names or documents are to be expected are\n"
    "refused with status 20. The pixels are not looked at: what they show is for a person to see. Exit status 10 "
    "means\n"
    "that something else is, too: texts that were cleaned of known values only, or a name left in a text; standard\n"
    "error and the report name it.";

struct SDeidentifyOptions
{
    SInputs inputs;
    CString output;
    CString keyFile;
    CString idMap;
    CString reportFile;
    CString safePrivate;
    CString dates; // "", "full" or "modified".
    std::vector<CString> rectangles;
    bool acceptPixels = false;
    bool uids = false;
    bool device = false;
    bool institution = false;
    bool characteristics = false;
    bool descriptors = false;
    bool structuredContent = false;
    bool graphics = false;
};

unsigned ProfileOptionsOf(const SDeidentifyOptions& wanted)
{
    using namespace Varnotix;
    const std::pair<bool, unsigned> all[] = {
        {!wanted.safePrivate.IsEmpty(), PROFILE_RETAIN_SAFE_PRIVATE},
        {wanted.uids, PROFILE_RETAIN_UIDS},
        {wanted.device, PROFILE_RETAIN_DEVICE},
        {wanted.institution, PROFILE_RETAIN_INSTITUTION},
        {wanted.characteristics, PROFILE_RETAIN_PATIENT_CHARACTERISTICS},
        {wanted.dates == "full", PROFILE_RETAIN_FULL_DATES},
        {wanted.dates == "modified", PROFILE_RETAIN_MODIFIED_DATES},
        {wanted.descriptors, PROFILE_CLEAN_DESCRIPTORS},
        {wanted.structuredContent, PROFILE_CLEAN_STRUCTURED_CONTENT},
        {wanted.graphics, PROFILE_CLEAN_GRAPHICS},
    };
    unsigned options = 0;
    for (const auto& [isWanted, option] : all)
    {
        options |= isWanted ? option : 0U;
    }
    return options;
}

int Run(const SDeidentifyOptions& wanted, const CDeidKey& key, const CReport& report)
{
    CPatients patients(key);
    CSafePrivate safePrivate;
    if ((!wanted.idMap.IsEmpty() && !patients.ReadList(wanted.idMap, report)) ||
        (!wanted.safePrivate.IsEmpty() && !safePrivate.Read(wanted.safePrivate, report)))
    {
        return STATUS_USAGE;
    }
    const Varnotix::CUidMap uids(
        [&key](std::string_view uid)
        {
            const CDigest digest = key.Hash("uid", uid);
            Varnotix::CUuid uuid{};
            std::copy_n(digest.begin(), uuid.size(), uuid.begin());
            return uuid;
        });
    const SDeidProfile profile{ProfileOptionsOf(wanted), wanted.acceptPixels, uids, patients, safePrivate};
    CRecordFile records;
    CDeidRun run(profile, key, wanted.output, records);
    if (wanted.acceptPixels)
    {
        run.AcceptPixels();
    }
    for (const CString& text : wanted.rectangles)
    {
        const std::optional<SRectangle> rectangle = ParseRectangle(text);
        if (!rectangle)
        {
            report.Error("--black-out: '" + text + "' is not X,Y,W,H in pixels");
            return STATUS_USAGE;
        }
        run.BlackOutRectangle(*rectangle);
    }
    if (!wanted.reportFile.IsEmpty())
    {
        records.Open(wanted.reportFile);
    }
    const int status =
        RunInputs(wanted.inputs, report, "were not de-identified", [&run](const SJob& job) { return run.Do(job); });
    records.Commit();
    return status;
}

int Deidentify(SDeidentifyOptions& wanted, const CReport& report)
{
    if (ChosenStreamRules() == STREAM_RULES_CLASSIC)
    {
        report.Error("deidentify: --classic would lose items, and what is in them could not be searched");
        return STATUS_USAGE;
    }
    if (!PlaceOutputs(wanted.inputs, wanted.output + "/", report))
    {
        return STATUS_USAGE;
    }
    for (const auto& [option, path] : {std::pair("--key", wanted.keyFile), std::pair("--id-map", wanted.idMap),
                                       std::pair("--report", wanted.reportFile)})
    {
        if (!path.IsEmpty() && LeadsInto(path, wanted.output))
        {
            report.Error(CString(option) + ": " + path + " would be given away with the folder of -o");
            return STATUS_USAGE;
        }
    }
    wanted.inputs.namesOutputs = false;
    if (!HasDataFiles(report, true))
    {
        return STATUS_UNREADABLE;
    }
    if (Varnotix::ProfileSize() == 0)
    {
        report.Error("deidentification.txt was not found or is damaged; 'varnotix where' shows where it is looked for");
        return STATUS_UNREADABLE;
    }
    return ReportWriteFailures(wanted.reportFile, report,
                               [&]
                               {
                                   const std::optional<CDeidKey> key = wanted.keyFile.IsEmpty()
                                                                           ? CDeidKey::Random()
                                                                           : CDeidKey::OfFile(wanted.keyFile, report);
                                   return key ? Run(wanted, *key, report) : static_cast<int>(STATUS_UNREADABLE);
                               });
}

} // namespace

void AddDeidentify(CCommandLine& line)
{
    const auto options = std::make_shared<SDeidentifyOptions>();
    options->inputs.entersFolders = true;
    CVerb verb = line.AddVerb("deidentify", "De-identify objects by the profile of the standard", kFooter);
    verb.Inputs(options->inputs, "Files and folders to read");
    verb.Text("-o,--output", options->output, "Folder to write to");
    const auto optional = CVerb::ENeed::Optional;
    verb.Text("--key", options->keyFile, "File with the key, made on first use; keep it secret", optional);
    verb.Text("--id-map", options->idMap, "File of lines 'old ID,new ID,new name'; other patients are refused",
              optional);
    verb.Text("--report", options->reportFile, "File for a record of what was done, a line of JSON per input",
              optional);
    verb.Flag("--retain-uids", options->uids, "Keep UIDs");
    verb.Flag("--retain-device", options->device, "Keep the identity of devices");
    verb.Flag("--retain-institution", options->institution, "Keep the identity of institutions");
    verb.Flag("--retain-patient-characteristics", options->characteristics, "Keep age, sex, size, weight and the like");
    verb.Choice("--retain-dates", options->dates, {"full", "modified"},
                "Keep dates and times, or move those of a patient by the same number of days", optional);
    verb.Text("--retain-safe-private", options->safePrivate,
              "File that lists private attributes to keep, such as (0019,\"ACME 1.0\",0C)", optional);
    verb.Flag("--clean-descriptors", options->descriptors,
              "Keep descriptions, with asterisks for known values, long numbers and mail addresses");
    verb.Flag("--clean-structured-content", options->structuredContent, "Keep content items, cleaned in the same way");
    verb.Flag("--clean-graphics", options->graphics, "Keep overlays, curves and annotations, their texts cleaned");
    verb.Texts("--black-out", options->rectangles, "Clear the rectangle X,Y,W,H of all frames; may be repeated",
               optional);
    verb.Flag("--accept-pixels", options->acceptPixels, "Take objects that are refused for what they may show");
    verb.MessageFlags();
    verb.Action([options](const CReport& report) { return Deidentify(*options, report); });
}
