#include "Guide.h"

namespace
{

void ReportScript(const CDcmCompositeIOD& object)
{
    for (const SScriptNote& note : object.ScriptNotes())
    {
        std::cout << "line " << note.line + 1 << ": " << Varnotix::ScriptNoteText(note.kind) << '\n';
    }
    for (const SScriptSource& source : object.ScriptSources())
    {
        std::cout << source.name.CText() << ": " << Varnotix::ScriptSourceText(source.state)
                  << "; frames: " << source.frames << '\n';
    }
}

/// A script whose pixel data is not there.
void BuildFromPictures()
{
    CStringArray lines;
    lines.Add("#PIXEL_DATA_FILE=missing.jpg");
    lines.Add("#PIXEL_DATA_FILE=missing.dcm");
    lines.Add("0010,0010,PN,1,Patient's Name,[Roe^Jane,]");

    CDcmCompositeIOD capture;
    try
    {
        capture.CreateFromASL(lines);
    }
    catch (const CFileException& failure)
    {
        if (failure.m_cause == CFileException::fileNotFound)
        {
            std::cout << "no such file\n";
        }
    }
    ReportScript(capture);
    std::cout << capture.GetCount() << " element\n";
}

} // namespace

void Scripts()
{
    CStringArray lines;
    for (const char* line : {
             "#SOURCE_FILE=guide.dcm",
             "#ANONYMIZE_55=1,ANONYMOUS",
             "0008,0060,CS,1,Modality,[CT,]",
             "0010,0010,PN,1,Patient's Name,[Doe^Jane,]",
             "0018,0050,DS,1,Slice Thickness,[2.5,]",
             "0018,0051,DS,1,No Such Attribute,[1,]",
         })
    {
        lines.Add(line);
    }

    CCTImageIOD ct;
    ct.CreateFromASL(lines);
    ct.UpdateIod(false); // The modules take what the script put into the store.
    std::cout << ct.Module<CDcmPatientModule>().PatientName().CText() << ", "
              << ct.Module<CDcmImagePixelModule>().Rows() << " rows\n";
    ReportScript(ct);

    BuildFromPictures();
}
