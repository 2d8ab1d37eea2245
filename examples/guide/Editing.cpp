#include "Guide.h"

namespace
{

void CompleteStudy(CDcmIOD& iod)
{
    CDcmGeneralStudyModule study;
    iod >> study;
    if (study.Accession_Number().IsEmpty())
    {
        study.Accession_Number("A-2041");
        iod << study;
    }
}

} // namespace

void Editing()
{
    CDcmIOD object;
    ReadFile("guide.dcm", object);

    CDcmPatientModule patient;
    object >> patient; // The module takes the object's values.
    patient.PatientID("4712");
    CStringArray names;
    names.Add("Roe^Jane");
    names.Add("Miller^Jane");
    patient.OtherPatientNames(names);
    object << patient; // Its values go back; what is empty in the module stays as it was in the object.
    std::cout << object.ElementStore().Find("0010", "1001")->JoinedText().CText() << '\n';

    CCTImageIOD ct;
    ReadFile("guide.dcm", ct);
    ct.Module<CDcmGeneralStudyModule>().StudyDescription() = "Head and neck";
    CString& description = ct.Module<CDcmGeneralStudyModule>().StudyDescription();
    description += ", follow-up";
    WriteFile("edited.dcm", ct); // The modules' values enter the object first.

    CDcmElementSet& store = object.ElementStore();
    store.AddKnown("0018", "0050")->AddText("2.5"); // Slice Thickness; in place of one that was there.
    store.Insert("0019", "1001", "LO", "1")->AddText("our own");
    store.Remove(0x0008, 0x1030);
    object.Sort();

    CompleteStudy(object);
    std::cout << store.Find(0x0008, 0x0050)->JoinedText().CText() << '\n';

    const bool taken = store.Find(0x0018, 0x0050)->AddWord(3); // A decimal string holds texts, not words.
    std::cout << (taken ? "taken" : "refused") << '\n';
}
