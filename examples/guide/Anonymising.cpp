#include "Guide.h"

void Anonymising()
{
    CFile file("guide.dcm", CFile::modeRead);
    CArchive archive(&file, CArchive::load);

    CDcmIOD object; // No modules, so nothing can put an old value back when the object is written.
    object.Serialize(archive);
    object.Anonymize55("ANONYMOUS");
    std::cout << object.ElementStore().Find(0x0010, 0x0010)->JoinedText().CText() << '\n';

    CCTImageIOD ct;
    ReadFile("guide.dcm", ct);
    ct.Anonymize55(""); // Removes the elements.
    ct.EmptyIodModules();
    ct.UpdateIod(false);
    WriteFile("anonymous.dcm", ct);
    CDcmIOD written;
    ReadFile("anonymous.dcm", written);
    std::cout << (written.ElementStore().Find(0x0010, 0x0010) == nullptr ? "no name" : "a name") << '\n';
}
