/// Writing objects so that nothing is lost unseen.
#pragma once

#include "files/OutputFile.h"
#include "rewrite/RewriteCheck.h"

#include <new>

/// Writes the object, reads it back and compares it with what it should be. Throws CWriteFailure when the output would
/// not be what it says it is.
/// @param before what the output should hold, taken before the write.
/// @param written becomes what was read back.
void WriteChecked(CDcmIOD& object, const std::vector<SSnapshot>& before, const CString& input, const SRewrite& rewrite,
                  CFile& file, CLossReport& losses, CDcmIOD& written);

/// Does what writes an output, and turns every failure of it into a message.
/// @param action returns an exit status.
template <class ACTION>
int TellingFailures(const CString& output, const CReport& report, const ACTION& action)
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
