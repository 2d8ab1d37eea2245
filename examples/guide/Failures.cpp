#include "Guide.h"

namespace
{

void ReportRead(const CDcmIOD& object)
{
    if (object.GetCount() == 0 || object.ReadStopped())
    {
        for (const SReadTrial& trial : object.ReadTrials())
        {
            std::cout << "syntax " << trial.syntax << ", byte " << trial.offset << ": "
                      << Varnotix::ParseFaultText(trial.fault) << '\n';
        }
    }
    for (const SReadNote& note : object.ReadNotes())
    {
        std::cout << "note " << note.note << " at byte " << note.offset << ": " << note.count << '\n';
    }
}

} // namespace

void Failures()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);
    CByteArray bytes;
    object.ExportFileFormat(bytes);
    bytes.SetSize(bytes.GetSize() - 100);
    object.Import(bytes);
    ReportRead(object);

    CFile file;
    CFileException reason;
    if (!file.Open("missing.dcm", CFile::modeRead, &reason) && reason.m_cause == CFileException::fileNotFound)
    {
        std::cout << "no such file\n";
    }
}
