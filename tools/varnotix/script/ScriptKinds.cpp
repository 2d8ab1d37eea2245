#include "script/ScriptKinds.h"

namespace
{

struct SKindRow
{
    const char* word;
    const CRuntimeClass* objectClass;
    const char* sopClass;
    const char* modality;
    std::vector<const CRuntimeClass*> ownModules; // Those that not every kind has.
};

const SKindRow kKinds[] = {
    {"CT",
     RUNTIME_CLASS(CCTImageIOD),
     "1.2.840.10008.5.1.4.1.1.2",
     "CT",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmFrameOfReferenceModule),
      RUNTIME_CLASS(CDcmImagePlaneModule), RUNTIME_CLASS(CDcmCTImageModule)}},
    {"MR",
     RUNTIME_CLASS(CMRImageIOD),
     "1.2.840.10008.5.1.4.1.1.4",
     "MR",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmFrameOfReferenceModule),
      RUNTIME_CLASS(CDcmImagePlaneModule), RUNTIME_CLASS(CDcmMRImageModule)}},
    {"CR",
     RUNTIME_CLASS(CCRImageIOD),
     "1.2.840.10008.5.1.4.1.1.1",
     "CR",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmCRSeriesModule), RUNTIME_CLASS(CDcmCRImageModule)}},
    {"NM",
     RUNTIME_CLASS(CNMImageIOD),
     "1.2.840.10008.5.1.4.1.1.20",
     "NM",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmNMPetOrientationModule),
      RUNTIME_CLASS(CDcmNMImagePixelModule), RUNTIME_CLASS(CDcmMultiFrameModule), RUNTIME_CLASS(CDcmNMMultiFrameModule),
      RUNTIME_CLASS(CDcmNMImageModule), RUNTIME_CLASS(CDcmNMIsotopeModule), RUNTIME_CLASS(CDcmNMDetectorModule)}},
    {"US",
     RUNTIME_CLASS(CUSImageIOD),
     "1.2.840.10008.5.1.4.1.1.6.1",
     "US",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmUSImageModule)}},
    {"US-MF",
     RUNTIME_CLASS(CUSMultiFrameImageIOD),
     "1.2.840.10008.5.1.4.1.1.3.1",
     "US",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmUSImageModule), RUNTIME_CLASS(CDcmCineModule),
      RUNTIME_CLASS(CDcmMultiFrameModule)}},
    {"SC", RUNTIME_CLASS(CSCImageIOD), "1.2.840.10008.5.1.4.1.1.7", "OT", {RUNTIME_CLASS(CDcmSCEquipmentModule)}},
    {"SC-MF",
     RUNTIME_CLASS(CSCMultiFrameImageIOD),
     "1.2.840.10008.5.1.4.1.1.7.4", // True colour.
     "OT",
     {RUNTIME_CLASS(CDcmSCEquipmentModule), RUNTIME_CLASS(CDcmMultiFrameModule),
      RUNTIME_CLASS(CDcmSCMultiFrameImageModule)}},
};

const CRuntimeClass* const kCommonModules[] = {
    RUNTIME_CLASS(CDcmPatientModule),       RUNTIME_CLASS(CDcmGeneralStudyModule),
    RUNTIME_CLASS(CDcmGeneralSeriesModule), RUNTIME_CLASS(CDcmGeneralImageModule),
    RUNTIME_CLASS(CDcmImagePixelModule),    RUNTIME_CLASS(CDcmSOPCommonModule),
};

const SNeeds kNeeds[] = {
    {RUNTIME_CLASS(CDcmPatientModule), {}, {0x00100010, 0x00100020, 0x00100030, 0x00100040}},
    {RUNTIME_CLASS(CDcmGeneralStudyModule), {0x0020000D}, {0x00080020, 0x00080030, 0x00080050, 0x00080090, 0x00200010}},
    {RUNTIME_CLASS(CDcmGeneralSeriesModule), {0x00080060, 0x0020000E}, {0x00200011}},
    {RUNTIME_CLASS(CDcmCRSeriesModule), {}, {0x00180015, 0x00185101}},
    {RUNTIME_CLASS(CDcmNMPetOrientationModule), {}, {0x00540410, 0x00540414}},
    {RUNTIME_CLASS(CDcmFrameOfReferenceModule), {0x00200052}, {0x00201040}},
    {RUNTIME_CLASS(CDcmGeneralEquipmentModule), {}, {0x00080070}},
    {RUNTIME_CLASS(CDcmSCEquipmentModule), {0x00080064}, {}},
    {RUNTIME_CLASS(CDcmGeneralImageModule), {}, {0x00200013}},
    {RUNTIME_CLASS(CDcmImagePlaneModule), {0x00200032, 0x00200037, 0x00280030}, {0x00180050}},
    {RUNTIME_CLASS(CDcmImagePixelModule),
     {0x00280002, 0x00280004, 0x00280010, 0x00280011, 0x00280100, 0x00280101, 0x00280102, 0x00280103},
     {}},
    {RUNTIME_CLASS(CDcmSOPCommonModule), {0x00080016, 0x00080018}, {}},
    {RUNTIME_CLASS(CDcmCTImageModule),
     {0x00080008, 0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102, 0x00281052, 0x00281053},
     {0x00180060, 0x00200012}},
    {RUNTIME_CLASS(CDcmMRImageModule),
     {0x00080008, 0x00180020, 0x00180021, 0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102},
     {0x00180022, 0x00180023, 0x00180081, 0x00180091}},
    {RUNTIME_CLASS(CDcmCRImageModule), {0x00280004}, {}},
    {RUNTIME_CLASS(CDcmNMImagePixelModule), {0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102}, {0x00280030}},
    {RUNTIME_CLASS(CDcmCineModule), {}, {}},
    {RUNTIME_CLASS(CDcmMultiFrameModule), {0x00280008, 0x00280009}, {}},
    {RUNTIME_CLASS(CDcmNMMultiFrameModule), {0x00280009, 0x00540011, 0x00540021}, {}},
    {RUNTIME_CLASS(CDcmNMImageModule), {0x00080008}, {0x00180070}},
    {RUNTIME_CLASS(CDcmNMIsotopeModule), {}, {0x00540012, 0x00540016}},
    {RUNTIME_CLASS(CDcmNMDetectorModule), {}, {0x00540022}},
    {RUNTIME_CLASS(CDcmUSImageModule),
     {0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102, 0x00280103},
     {0x00080008}},
    {RUNTIME_CLASS(CDcmSCMultiFrameImageModule), {0x00280301}, {}},
};

void AddNeeds(const CRuntimeClass* module, std::vector<SNeeds>& needs)
{
    for (const SNeeds& known : kNeeds)
    {
        if (known.module == module)
        {
            needs.push_back(known);
        }
    }
}

} // namespace

std::vector<std::string> ScriptKindWords()
{
    std::vector<std::string> words;
    for (const SKindRow& row : kKinds)
    {
        words.emplace_back(row.word);
    }
    return words;
}

SScriptKind ScriptKind(const std::string& word)
{
    SScriptKind kind{};
    for (const SKindRow& row : kKinds)
    {
        if (word == row.word)
        {
            kind = {row.word, row.objectClass, row.sopClass, row.modality, {}};
            for (const CRuntimeClass* module : kCommonModules)
            {
                AddNeeds(module, kind.needs);
            }
            for (const CRuntimeClass* module : row.ownModules)
            {
                AddNeeds(module, kind.needs);
            }
        }
    }
    return kind;
}
