// example_phantom OUT.dcm: makes a small image object from nothing and writes it as a file.
//
// It shows the three ways in which values get into an object: typed accessors of a module, elements by tag, and pixel
// data as a frame.

#include "Varnotix/Varnotix.h"

#include <iostream>

namespace
{
constexpr const char* kSecondaryCapture = "1.2.840.10008.5.1.4.1.1.7";
constexpr const char* kExplicitLittleEndian = "1.2.840.10008.1.2.1";

// UUIDs made for this example (PS3.5 Annex B.2). A real host makes new ones for each study, series and object.
constexpr const char* kStudy = "2.25.23742590378409374675681828961927088932";
constexpr const char* kSeries = "2.25.290706546476624249098776298336503857515";
constexpr const char* kObject = "2.25.77289447921724334367124535328263053470";
constexpr const char* kImplementation = "2.25.119038451809558036340404732679908002108";

constexpr WORD kSide = 64;
constexpr WORD kBrightest = 4095;

/// The library never fills the file's header by itself.
void AddFileMeta(CDcmIOD& object)
{
    CByteArray version;
    version.Add(0);
    version.Add(1);
    CDcmMetaFileInformation meta;
    meta.MetaVersion(version);
    meta.MediaClassUID(kSecondaryCapture);
    meta.MediaInstanceUID(kObject);
    meta.TransferSyntaxUID(kExplicitLittleEndian); // Decides the syntax of the write.
    meta.ImplementationClassUID(kImplementation);
    object << meta;
}

/// A module is a typed view with values of its own; << copies those that are not empty into the object.
void AddPatient(CDcmIOD& object)
{
    CDcmPatientModule patient;
    patient.PatientName("Phantom^Disc");
    patient.PatientID("PHANTOM-1");
    patient.PatientBirthDate("20000101");
    patient.PatientSex("O");
    patient.PatientComments("A bright disc on a ramp");
    object << patient;
}

/// What no module is at hand for goes in by tag. The dictionary knows the VR.
void AddText(CDcmIOD& object, const char* group, const char* element, const char* text)
{
    object.ElementStore().AddKnown(group, element)->AddText(text);
}

void AddNumber(CDcmIOD& object, const char* group, const char* element, WORD number)
{
    object.ElementStore().AddKnown(group, element)->AddWord(number);
}

void AddDescription(CDcmIOD& object)
{
    CDcmElement* const imageType = object.ElementStore().AddKnown("0008", "0008");
    imageType->AddText("DERIVED");
    imageType->AddText("SECONDARY");
    AddText(object, "0008", "0016", kSecondaryCapture);
    AddText(object, "0008", "0018", kObject);
    AddText(object, "0008", "0020", "20240131");
    AddText(object, "0008", "0030", "101530");
    AddText(object, "0008", "0060", "OT");
    AddText(object, "0008", "0064", "WSD");
    AddText(object, "0008", "1030", "Phantom study");
    AddText(object, "0020", "000D", kStudy);
    AddText(object, "0020", "000E", kSeries);
    AddText(object, "0020", "0010", "1");
    AddText(object, "0020", "0011", "1");
    AddText(object, "0020", "0013", "1");
}

/// A disc in the middle of a ramp from left to right.
CWordArray MakePicture()
{
    constexpr int kCentre = kSide / 2;
    constexpr int kRadius = kSide / 4;
    CWordArray picture;
    picture.Reserve(kSide * kSide);
    for (int y = 0; y < kSide; ++y)
    {
        for (int x = 0; x < kSide; ++x)
        {
            const int fromCentre = (x - kCentre) * (x - kCentre) + (y - kCentre) * (y - kCentre);
            const bool inDisc = fromCentre < kRadius * kRadius;
            picture.Add(inDisc ? kBrightest : static_cast<WORD>(x * (kBrightest / 2) / kSide));
        }
    }
    return picture;
}

void AddPicture(CDcmIOD& object)
{
    AddNumber(object, "0028", "0002", 1);
    AddText(object, "0028", "0004", "MONOCHROME2");
    AddNumber(object, "0028", "0010", kSide);
    AddNumber(object, "0028", "0011", kSide);
    AddNumber(object, "0028", "0100", 16);
    AddNumber(object, "0028", "0101", 12);
    AddNumber(object, "0028", "0102", 11);
    AddNumber(object, "0028", "0103", 0);
    AddText(object, "0028", "1050", "2048");
    AddText(object, "0028", "1051", "4096");

    // The dictionary leaves open whether pixels are bytes or words, so the VR is named here.
    auto* pixels = new CDcmElement(0x7FE0, 0x0010, VR_OW);
    pixels->Frames()->AddFrame(MakePicture());
    object.ElementStore().Add(pixels); // Takes ownership.
}
} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
    {
        std::cerr << "usage: example_phantom OUT.dcm\n";
        return 1;
    }
    InitDicomDLL();
    if (CDcmRegistry::Global().DictionarySize() == 0)
    {
        std::cerr << "example_phantom: dictionary.txt was not found; name its folder in VARNOTIX_DATA\n";
        return 20;
    }
    CDcmIOD object;
    AddFileMeta(object);
    AddPatient(object);
    AddDescription(object);
    AddPicture(object);
    try
    {
        CFile file(arguments[1], CFile::modeCreate | CFile::modeWrite);
        CArchive archive(&file, CArchive::store);
        object.Serialize(archive); // Sorts the elements by tag, and writes preamble, header and elements.
        archive.Close();
        file.Close();
    }
    catch (const CFileException& failure)
    {
        std::cerr << "example_phantom: " << failure.GetErrorMessage().CText() << '\n';
        return 40;
    }
    std::cout << "wrote " << arguments[1] << ": " << object.GetCount() << " elements\n";
    return 0;
}
