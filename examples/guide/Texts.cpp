#include "Guide.h"

void Texts()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);
    CStringArray lines;
    object.Export(lines);
    for (const CString& line : lines)
    {
        if (line.Find("0010,00") == 0)
        {
            std::cout << line.CText() << '\n';
        }
    }

    object.Export("guide.asl");
    CDcmIOD again;
    again.ImportFromASL("guide.asl");
    std::cout << again.GetCount() << " of " << object.GetCount() << " elements\n";
    for (const SScriptNote& note : again.ScriptNotes())
    {
        std::cout << "line " << note.line + 1 << ": " << Varnotix::ScriptNoteText(note.kind) << '\n';
    }
}
