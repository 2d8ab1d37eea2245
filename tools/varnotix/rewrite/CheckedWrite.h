/// Writing objects so that every loss is reported.
#pragma once

#include "files/OutputFile.h"
#include "rewrite/RewriteCheck.h"

#include <new>

/// Writes the object, reads it back and compares it with what it should be. Throws CWriteFailure when the output would
/// not be readable or not match.
/// @param before what the output should hold, taken before the write.
/// @param written receives what was read back.
void WriteChecked(CDcmIOD& object, const std::vector<SSnapshot>& before, const CString& input, const SRewrite& rewrite,
                  CFile& file, CLossReport& losses, CDcmIOD& written);

/// Runs an action that writes an output, and reports its exceptions.
/// @param action returns an exit status.
template <class ACTION>
int ReportWriteFailures(const CString& output, const CReport& report, const ACTION& action)
{
    try
    {
        return action();
    }
    catch (const CWriteFailure& failure)
    {
        report.Error(failure.what());
    }
    catch (const CFileException& failure)
    {
        report.Error(WriteFailureOf(failure, output).what());
    }
    catch (const CMemoryException& failure)
    {
        report.Error(output + ": " + failure.GetErrorMessage());
    }
    catch (const std::bad_alloc&)
    {
        report.Error(output + ": " + CMemoryException().GetErrorMessage());
    }
    return STATUS_UNWRITTEN;
}
