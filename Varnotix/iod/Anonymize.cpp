// Anonymisation: one replacement text for 32 identifying attributes.

#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/iod/IdentifyingTags.h"
#include "Varnotix/modules/DcmAttributeModule.h"

const SIdentifyingTag kIdentifyingTags[kIdentifyingTagCount] = {
    {"0010", "0010"}, // Patient's Name
    {"0010", "0020"}, // Patient ID
    {"0010", "0030"}, // Patient's Birth Date
    {"0010", "0040"}, // Patient's Sex
    {"0010", "0032"}, // Patient's Birth Time
    {"0010", "1000"}, // Other Patient IDs
    {"0010", "1001"}, // Other Patient Names
    {"0010", "2160"}, // Ethnic Group
    {"0010", "4000"}, // Patient Comments
    {"0008", "0090"}, // Referring Physician's Name
    {"0020", "0010"}, // Study ID
    {"0008", "0050"}, // Accession Number
    {"0008", "1030"}, // Study Description
    {"0008", "1048"}, // Physician(s) of Record
    {"0008", "1060"}, // Name of Physician(s) Reading Study
    {"0008", "1080"}, // Admitting Diagnoses Description
    {"0010", "1010"}, // Patient's Age
    {"0010", "1020"}, // Patient's Size
    {"0010", "1030"}, // Patient's Weight
    {"0010", "2180"}, // Occupation
    {"0010", "21B0"}, // Additional Patient History
    {"0008", "1050"}, // Performing Physician's Name
    {"0018", "1030"}, // Protocol Name
    {"0008", "103E"}, // Series Description
    {"0008", "1070"}, // Operators' Name
    {"0008", "0080"}, // Institution Name
    {"0008", "0081"}, // Institution Address
    {"0008", "1010"}, // Station Name
    {"0008", "1040"}, // Institutional Department Name
    {"0018", "1000"}, // Device Serial Number
    {"0008", "2111"}, // Derivation Description
    {"0020", "4000"}, // Image Comments
};

void CDcmIOD::Anonymize55(const CString& text)
{
    CDcmAttributeModule replacement;
    for (const SIdentifyingTag& tag : kIdentifyingTags)
    {
        replacement.Insert(tag.group, tag.element);
        replacement.SetValueField(tag.group, tag.element, text);
    }
    if (text.IsEmpty())
    {
        *this -= replacement;
    }
    else
    {
        // The text may stand in the store, where values change.
        const CString copy(text); // NOLINT(performance-unnecessary-copy-initialization)
        const CDcmElementSet& values = replacement.GetDcmElementSet();
        m_store->UpdateValuesFrom(values);
        for (int i = 0; i < m_store->GetCount(); ++i)
        {
            CDcmElement& element = *m_store->GetAt(i);
            const CDcmElement* value = values.Find(element);
            if (value != nullptr && element.Vr() != value->Vr())
            {
                // Values pass between elements of one VR only, but a name stays none because a file gave it another VR.
                element.EmptyValue();
                element.AddText(copy);
            }
        }
    }
}
