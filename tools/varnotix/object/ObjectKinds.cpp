#include "object/ObjectKinds.h"

#include <algorithm>

namespace
{

const std::vector<SObjectKind> kKinds = {
    {"CT",
     RUNTIME_CLASS(CCTImageIOD),
     {"1.2.840.10008.5.1.4.1.1.2"},
     "CT",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmFrameOfReferenceModule),
      RUNTIME_CLASS(CDcmImagePlaneModule), RUNTIME_CLASS(CDcmCTImageModule)}},
    {"MR",
     RUNTIME_CLASS(CMRImageIOD),
     {"1.2.840.10008.5.1.4.1.1.4"},
     "MR",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmFrameOfReferenceModule),
      RUNTIME_CLASS(CDcmImagePlaneModule), RUNTIME_CLASS(CDcmMRImageModule)}},
    {"CR",
     RUNTIME_CLASS(CCRImageIOD),
     {"1.2.840.10008.5.1.4.1.1.1"},
     "CR",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmCRSeriesModule), RUNTIME_CLASS(CDcmCRImageModule)}},
    {"NM",
     RUNTIME_CLASS(CNMImageIOD),
     {
         "1.2.840.10008.5.1.4.1.1.20", // Current.
         "1.2.840.10008.5.1.4.1.1.5"   // Retired.
     },
     "NM",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmNMPetOrientationModule),
      RUNTIME_CLASS(CDcmNMImagePixelModule), RUNTIME_CLASS(CDcmMultiFrameModule), RUNTIME_CLASS(CDcmNMMultiFrameModule),
      RUNTIME_CLASS(CDcmNMImageModule), RUNTIME_CLASS(CDcmNMIsotopeModule), RUNTIME_CLASS(CDcmNMDetectorModule)}},
    {"US",
     RUNTIME_CLASS(CUSImageIOD),
     {
         "1.2.840.10008.5.1.4.1.1.6.1", // Current.
         "1.2.840.10008.5.1.4.1.1.6"    // Retired.
     },
     "US",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmUSImageModule)}},
    {"US-MF",
     RUNTIME_CLASS(CUSMultiFrameImageIOD),
     {
         "1.2.840.10008.5.1.4.1.1.3.1", // Current.
         "1.2.840.10008.5.1.4.1.1.3"    // Retired.
     },
     "US",
     {RUNTIME_CLASS(CDcmGeneralEquipmentModule), RUNTIME_CLASS(CDcmUSImageModule), RUNTIME_CLASS(CDcmCineModule),
      RUNTIME_CLASS(CDcmMultiFrameModule)}},
    {"SC", RUNTIME_CLASS(CSCImageIOD), {"1.2.840.10008.5.1.4.1.1.7"}, "OT", {RUNTIME_CLASS(CDcmSCEquipmentModule)}},
    {"SC-MF",
     RUNTIME_CLASS(CSCMultiFrameImageIOD),
     {
         "1.2.840.10008.5.1.4.1.1.7.4", // True color.
         "1.2.840.10008.5.1.4.1.1.7.1", // Single bit.
         "1.2.840.10008.5.1.4.1.1.7.2", // Grayscale byte.
         "1.2.840.10008.5.1.4.1.1.7.3"  // Grayscale word.
     },
     "OT",
     {RUNTIME_CLASS(CDcmSCEquipmentModule), RUNTIME_CLASS(CDcmMultiFrameModule),
      RUNTIME_CLASS(CDcmSCMultiFrameImageModule)}},
    {nullptr,
     RUNTIME_CLASS(CPatientInformationIOD),
     {"1.2.840.10008.3.1.2.1.1"}, // Detached patient management.
     "",
     {}},
};

const CRuntimeClass* const kCommonModules[] = {
    RUNTIME_CLASS(CDcmPatientModule),       RUNTIME_CLASS(CDcmGeneralStudyModule),
    RUNTIME_CLASS(CDcmGeneralSeriesModule), RUNTIME_CLASS(CDcmGeneralImageModule),
    RUNTIME_CLASS(CDcmImagePixelModule),    RUNTIME_CLASS(CDcmSOPCommonModule),
};

// Class, entity that begins with it, attributes of type 1, attributes of type 2.
const SModuleFacts kModules[] = {
    {RUNTIME_CLASS(CDcmMetaFileInformation), "File", {}, {}},
    {RUNTIME_CLASS(CDcmPatientModule), "Patient", {}, {0x00100010, 0x00100020, 0x00100030, 0x00100040}},
    {RUNTIME_CLASS(CDcmPatientRelationshipModule), "Patient", {}, {}},
    {RUNTIME_CLASS(CDcmGeneralStudyModule),
     "Study",
     {0x0020000D},
     {0x00080020, 0x00080030, 0x00080050, 0x00080090, 0x00200010}},
    {RUNTIME_CLASS(CDcmGeneralSeriesModule), "Series", {0x00080060, 0x0020000E}, {0x00200011}},
    {RUNTIME_CLASS(CDcmCRSeriesModule), "", {}, {0x00180015, 0x00185101}},
    {RUNTIME_CLASS(CDcmNMPetOrientationModule), "", {}, {0x00540410, 0x00540414}},
    {RUNTIME_CLASS(CDcmFrameOfReferenceModule), "Frame of reference", {0x00200052}, {0x00201040}},
    {RUNTIME_CLASS(CDcmGeneralEquipmentModule), "Equipment", {}, {0x00080070}},
    {RUNTIME_CLASS(CDcmSCEquipmentModule), "", {0x00080064}, {}},
    {RUNTIME_CLASS(CDcmGeneralImageModule), "Image", {}, {0x00200013}},
    {RUNTIME_CLASS(CDcmImagePlaneModule), "", {0x00200032, 0x00200037, 0x00280030}, {0x00180050}},
    {RUNTIME_CLASS(CDcmImagePixelModule),
     "",
     {0x00280002, 0x00280004, 0x00280010, 0x00280011, 0x00280100, 0x00280101, 0x00280102, 0x00280103},
     {}},
    {RUNTIME_CLASS(CDcmSOPCommonModule), "", {0x00080016, 0x00080018}, {}},
    {RUNTIME_CLASS(CDcmCTImageModule),
     "",
     {0x00080008, 0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102, 0x00281052, 0x00281053},
     {0x00180060, 0x00200012}},
    {RUNTIME_CLASS(CDcmMRImageModule),
     "",
     {0x00080008, 0x00180020, 0x00180021, 0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102},
     {0x00180022, 0x00180023, 0x00180081, 0x00180091}},
    {RUNTIME_CLASS(CDcmCRImageModule), "", {0x00280004}, {}},
    {RUNTIME_CLASS(CDcmNMImagePixelModule),
     "",
     {0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102},
     {0x00280030}},
    {RUNTIME_CLASS(CDcmCineModule), "", {}, {}},
    {RUNTIME_CLASS(CDcmMultiFrameModule), "", {0x00280008, 0x00280009}, {}},
    {RUNTIME_CLASS(CDcmNMMultiFrameModule), "", {0x00280009, 0x00540011, 0x00540021}, {}},
    {RUNTIME_CLASS(CDcmNMImageModule), "", {0x00080008}, {0x00180070}},
    {RUNTIME_CLASS(CDcmNMIsotopeModule), "", {}, {0x00540012, 0x00540016}},
    {RUNTIME_CLASS(CDcmNMDetectorModule), "", {}, {0x00540022}},
    {RUNTIME_CLASS(CDcmUSImageModule),
     "",
     {0x00280002, 0x00280004, 0x00280100, 0x00280101, 0x00280102, 0x00280103},
     {0x00080008}},
    {RUNTIME_CLASS(CDcmSCMultiFrameImageModule), "", {0x00280301}, {}},
    {RUNTIME_CLASS(CDcmCurveIdentificationModule), "Curve", {}, {}},
};

} // namespace

const std::vector<SObjectKind>& ObjectKinds()
{
    return kKinds;
}

const CRuntimeClass* ClassOfSopClass(const CString& sopClass)
{
    for (const SObjectKind& kind : kKinds)
    {
        if (std::find(kind.sopClasses.begin(), kind.sopClasses.end(), sopClass.View()) != kind.sopClasses.end())
        {
            return kind.objectClass;
        }
    }
    return RUNTIME_CLASS(CDcmCompositeIOD);
}

std::vector<SModuleFacts> MandatoryModules(const SObjectKind& kind)
{
    std::vector<SModuleFacts> modules;
    for (const SModuleFacts& facts : kModules)
    {
        const auto isThis = [&](const CRuntimeClass* module) { return module == facts.module; };
        if (std::any_of(std::begin(kCommonModules), std::end(kCommonModules), isThis) ||
            std::any_of(kind.ownModules.begin(), kind.ownModules.end(), isThis))
        {
            modules.push_back(facts);
        }
    }
    return modules;
}

CString EntityStarting(const CDcmModule& module)
{
    for (const SModuleFacts& facts : kModules)
    {
        if (module.GetRuntimeClass() == facts.module)
        {
            return facts.entity;
        }
    }
    return CString();
}
