#include "Guide.h"

#include <stdexcept>

/// Throws for an object that is empty or not whole: nothing must be made of it, least of all the file it came from.
void ReadFile(const char* path, CDcmIOD& object)
{
    CFile file(path, CFile::modeRead);
    CArchive archive(&file, CArchive::load);
    object.StreamRules(STREAM_RULES_STANDARD);
    object.Serialize(archive);
    if (object.GetCount() == 0 || object.ReadStopped())
    {
        throw std::runtime_error(std::string(path) + " cannot be read whole");
    }
}

void WriteFile(const char* path, CDcmIOD& object)
{
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    CArchive archive(&file, CArchive::store);
    object.Serialize(archive);
    archive.Close(); // A destructor would swallow a late failure of the disk.
    file.Close();
}

void Making()
{
    CCTImageIOD ct;
    ct.StreamRules(STREAM_RULES_STANDARD); // What DICOM says, instead of the library's own rules; see below.

    CDcmMetaFileInformation& meta = ct.MetaFileInformation();
    meta.MediaClassUID("1.2.840.10008.5.1.4.1.1.2");
    meta.MediaInstanceUID("2.25.77289447921724334367124535328263053471");
    meta.TransferSyntaxUID("1.2.840.10008.1.2.1"); // Explicit VR little endian: the write obeys it.

    CDcmSOPCommonModule& sop = ct.Module<CDcmSOPCommonModule>();
    sop.SOPClassUID("1.2.840.10008.5.1.4.1.1.2");
    sop.SOPInstanceUID("2.25.77289447921724334367124535328263053471");
    ct.Module<CDcmGeneralSeriesModule>().Modality("CT");
    ct.Module<CDcmPatientModule>().PatientName("Doe^Jane");
    ct.Module<CDcmPatientModule>().PatientID("4711");
    ct.Module<CDcmGeneralStudyModule>().StudyDescription("Head");
    ct.Module<CDcmGeneralStudyModule>().ProcedureCode().CodeValue("CTHEAD");
    ct.Module<CDcmGeneralStudyModule>().ProcedureCode().CodeMeaning("CT of the head");

    CDcmImagePixelModule& pixels = ct.Module<CDcmImagePixelModule>();
    pixels.SamplesperPixel(1);
    pixels.PhotoMetricInterpretation("MONOCHROME2");
    pixels.Rows(16);
    pixels.Columns(16);
    pixels.BitsAllocated(16);
    pixels.BitsStored(12);
    pixels.HighBit(11);
    CWordArray picture;
    picture.SetSize(16 * 16);
    pixels.SetPixelData(picture);

    WriteFile("guide.dcm", ct);
}

void Reading()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);
    std::cout << object.GetCount() << " elements\n";
    const CDcmElement* const name = object.ElementStore().Find(0x0010, 0x0010);
    if (name != nullptr)
    {
        std::cout << name->Name().CText() << ": " << name->JoinedText().CText() << '\n';
    }
    const CDcmElement* const rows = object.ElementStore().Find(0x0028, 0x0010);
    if (rows != nullptr && rows->Words() != nullptr && rows->Words()->GetSize() > 0)
    {
        std::cout << rows->Name().CText() << ": " << rows->Words()->GetAt(0) << '\n';
    }

    CCTImageIOD ct;
    ReadFile("guide.dcm", ct);
    std::cout << ct.Module<CDcmPatientModule>().PatientName().CText() << '\n';
    std::cout << ct.Module<CDcmImagePixelModule>().Rows() << " rows\n";

    CDcmCompositeIOD any;
    ReadFile("guide.dcm", any);
    const CDcmElement* const kind = any.ElementStore().Find(0x0008, 0x0016);
    if (kind != nullptr && kind->JoinedText() == "1.2.840.10008.5.1.4.1.1.2")
    {
        CCTImageIOD typed(any); // Shares the pixel bytes with the other object.
        std::cout << typed.Module<CDcmGeneralSeriesModule>().Modality().CText() << '\n';
    }
}

void Writing()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);

    CDcmMetaFileInformation meta;
    object >> meta;
    meta.TransferSyntaxUID("1.2.840.10008.1.2.2");
    object << meta;
    CByteArray file;
    object.ExportFileFormat(file); // Preamble, DICM, group 0002 and elements, in memory.

    CByteArray dataSet;
    object.ElementStore().RemoveTagsOf(meta.GetDcmElementSet()); // A data set on its own has no group 0002.
    object.Export(dataSet, "1.2.840.10008.1.2");                 // Only the elements, as in a network message.

    CDcmIOD fromFile;
    fromFile.Import(file);
    CDcmIOD fromDataSet;
    fromDataSet.Import(dataSet);
    std::cout << "big endian is syntax " << fromFile.IodSyntax() << ", implicit " << fromDataSet.IodSyntax() << '\n';
}
