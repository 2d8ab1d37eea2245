#include "object/Entities.h"

namespace
{

/// These come first in their entities.
struct SEntityStart
{
    const CRuntimeClass* moduleClass;
    const char* entity;
};

const SEntityStart kEntityStarts[] = {
    {RUNTIME_CLASS(CDcmMetaFileInformation), "File"},
    {RUNTIME_CLASS(CDcmPatientModule), "Patient"},
    {RUNTIME_CLASS(CDcmPatientRelationshipModule), "Patient"},
    {RUNTIME_CLASS(CDcmGeneralStudyModule), "Study"},
    {RUNTIME_CLASS(CDcmGeneralSeriesModule), "Series"},
    {RUNTIME_CLASS(CDcmGeneralEquipmentModule), "Equipment"},
    {RUNTIME_CLASS(CDcmFrameOfReferenceModule), "Frame of reference"},
    {RUNTIME_CLASS(CDcmGeneralImageModule), "Image"},
    {RUNTIME_CLASS(CDcmCurveIdentificationModule), "Curve"},
};

} // namespace

CString EntityStarting(const CDcmModule& module)
{
    for (const SEntityStart& start : kEntityStarts)
    {
        if (module.GetRuntimeClass() == start.moduleClass)
        {
            return start.entity;
        }
    }
    return CString();
}
