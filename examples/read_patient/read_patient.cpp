#include "Varnotix/Varnotix.h"

#include <iostream>

int main(int count, char** arguments)
try
{
    InitDicomDLL();
    CFile file(count > 1 ? arguments[1] : "phantom.dcm", CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Serialize(archive);

    CDcmPatientModule patient;
    object >> patient;
    std::cout << patient.PatientName().CText() << '\n';
    return object.GetCount() > 0 ? 0 : 20;
}
catch (const CFileException& failure)
{
    std::cerr << failure.GetErrorMessage().CText() << '\n';
    return 20;
}
