// Anonymisation: one replacement text for 32 identifying attributes.

#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/iod/IdentifyingTags.h"
#include "Varnotix/modules/DcmAttributeModule.h"

using namespace Varnotix;

const DWORD Varnotix::kIdentifyingTags[Varnotix::kIdentifyingTagCount] = {
    0x00100010, // Patient's Name
    0x00100020, // Patient ID
    0x00100030, // Patient's Birth Date
    0x00100040, // Patient's Sex
    0x00100032, // Patient's Birth Time
    0x00101000, // Other Patient IDs
    0x00101001, // Other Patient Names
    0x00102160, // Ethnic Group
    0x00104000, // Patient Comments
    0x00080090, // Referring Physician's Name
    0x00200010, // Study ID
    0x00080050, // Accession Number
    0x00081030, // Study Description
    0x00081048, // Physician(s) of Record
    0x00081060, // Name of Physician(s) Reading Study
    0x00081080, // Admitting Diagnoses Description
    0x00101010, // Patient's Age
    0x00101020, // Patient's Size
    0x00101030, // Patient's Weight
    0x00102180, // Occupation
    0x001021B0, // Additional Patient History
    0x00081050, // Performing Physician's Name
    0x00181030, // Protocol Name
    0x0008103E, // Series Description
    0x00081070, // Operators' Name
    0x00080080, // Institution Name
    0x00080081, // Institution Address
    0x00081010, // Station Name
    0x00081040, // Institutional Department Name
    0x00181000, // Device Serial Number
    0x00082111, // Derivation Description
    0x00204000, // Image Comments
};

void CDcmIOD::Anonymize55(const CString& text)
{
    CDcmAttributeModule replacement;
    CDcmElementSet& values = replacement.GetDcmElementSet();
    for (const DWORD tag : kIdentifyingTags)
    {
        if (CDcmElement* element = values.AddKnown(tag))
        {
            element->AddText(text);
        }
    }
    if (text.IsEmpty())
    {
        *this -= replacement;
    }
    else
    {
        // The text may be one of the store's, whose values change.
        const CString copy(text); // NOLINT(performance-unnecessary-copy-initialization)
        m_store->UpdateValuesFrom(values);
        for (int i = 0; i < m_store->GetCount(); ++i)
        {
            CDcmElement& element = *m_store->GetAt(i);
            const CDcmElement* value = values.Find(element);
            if (value != nullptr && element.Vr() != value->Vr())
            {
                // Values are assigned between elements of one VR only; a name in another VR must be replaced too.
                element.EmptyValue();
                element.AddText(copy);
            }
        }
    }
}
