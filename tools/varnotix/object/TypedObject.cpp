#include "object/TypedObject.h"

#include "object/Attributes.h"

namespace
{

constexpr DWORD kSopClass = 0x00080016;

struct SObjectClass
{
    const char* sopClass;
    const CRuntimeClass* objectClass;
};

const SObjectClass kObjectClasses[] = {
    {"1.2.840.10008.5.1.4.1.1.1", RUNTIME_CLASS(CCRImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.2", RUNTIME_CLASS(CCTImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.4", RUNTIME_CLASS(CMRImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.5", RUNTIME_CLASS(CNMImageIOD)}, // Retired.
    {"1.2.840.10008.5.1.4.1.1.20", RUNTIME_CLASS(CNMImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.6", RUNTIME_CLASS(CUSImageIOD)}, // Retired.
    {"1.2.840.10008.5.1.4.1.1.6.1", RUNTIME_CLASS(CUSImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.3", RUNTIME_CLASS(CUSMultiFrameImageIOD)}, // Retired.
    {"1.2.840.10008.5.1.4.1.1.3.1", RUNTIME_CLASS(CUSMultiFrameImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.7", RUNTIME_CLASS(CSCImageIOD)},
    {"1.2.840.10008.5.1.4.1.1.7.1", RUNTIME_CLASS(CSCMultiFrameImageIOD)}, // Single bit.
    {"1.2.840.10008.5.1.4.1.1.7.2", RUNTIME_CLASS(CSCMultiFrameImageIOD)}, // Grayscale byte.
    {"1.2.840.10008.5.1.4.1.1.7.3", RUNTIME_CLASS(CSCMultiFrameImageIOD)}, // Grayscale word.
    {"1.2.840.10008.5.1.4.1.1.7.4", RUNTIME_CLASS(CSCMultiFrameImageIOD)}, // True colour.
    {"1.2.840.10008.3.1.2.1.1", RUNTIME_CLASS(CPatientInformationIOD)},    // Detached patient management.
};

const CRuntimeClass* ClassFor(const CString& sopClass)
{
    for (const SObjectClass& known : kObjectClasses)
    {
        if (sopClass == known.sopClass)
        {
            return known.objectClass;
        }
    }
    return RUNTIME_CLASS(CDcmCompositeIOD);
}

} // namespace

std::unique_ptr<CDcmIOD> MakeTypedObject(const CDcmIOD& object)
{
    CObject* made = ClassFor(TextOf(object.ElementStore(), kSopClass))->CreateObject();
    std::unique_ptr<CDcmIOD> typed(static_cast<CDcmIOD*>(made));
    *typed = object;
    return typed;
}
