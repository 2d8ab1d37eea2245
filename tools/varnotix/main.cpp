// Puts the verbs together and runs one of them.

#include "commands/Commands.h"
#include "console/Interrupt.h"
#include "console/StandardStreams.h"
#include "files/Unfinished.h"

namespace
{

constexpr const char* kFooter =
    "Data goes to standard output, everything else to standard error.\n"
    "Exit status: 0 done, 1 wrong usage, 10 done with findings, 20 an input could not be read,\n"
    "40 an output could not be written, 129, 130 or 143 ended by a signal, 141 the reader of the output closed it.\n"
    "The data dictionary is looked for in the current directory, in the folder that VARNOTIX_DATA names,\n"
    "beside the library and in the share folder.";

int Run(int count, char** texts)
{
    CCommandLine line("Reads and writes DICOM files.", kFooter);
    AddDump(line);
    AddList(line);
    AddConvert(line);
    AddAnonymize(line);
    AddDeidentify(line);
    AddFrames(line);
    AddModules(line);
    AddCheck(line);
    AddNew(line);
    AddBuild(line);
    AddApply(line);
    AddSet(line);
    AddDiff(line);
    AddPdu(line);
    AddWhere(line);
    return line.Run(count, texts);
}

} // namespace

int main(int count, char** texts)
{
    PrepareStandardStreams();
    WatchInterrupts(&EndUnfinished);
    InitDicomDLL();
    try
    {
        return Run(count, texts);
    }
    catch (const SClosedPipe&)
    {
        return STATUS_CLOSED_PIPE;
    }
    catch (const std::exception& failure)
    {
        CReport(false, false).Error(failure.what());
    }
    catch (const CException& failure)
    {
        CReport(false, false).Error(failure.GetErrorMessage());
    }
    return STATUS_UNWRITTEN;
}
