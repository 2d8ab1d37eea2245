#include "Guide.h"

#include <thread>

namespace
{

std::string PatientIn(const char* path)
{
    CDcmIOD object;
    ReadFile(path, object);
    CDcmPatientModule patient;
    object >> patient;
    return std::string(patient.PatientName().CText());
}

} // namespace

void Threads()
{
    std::string first;
    std::string second;
    std::thread reader([&first] { first = PatientIn("guide.dcm"); });
    second = PatientIn("edited.dcm");
    reader.join();
    std::cout << first << ", " << second << '\n';
}
