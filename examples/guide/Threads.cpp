#include "Guide.h"

#include <mutex>
#include <thread>

namespace
{

std::mutex libraryMutex;

/// The object is destroyed before the lock is released, and what leaves is not the library's.
std::string PatientIn(const char* path)
{
    const std::scoped_lock lock(libraryMutex);
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
