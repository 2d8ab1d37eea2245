#pragma once

#include "Varnotix/catalogue/DcmCodeSequenceMacroEx.h"
#include "Varnotix/modules/AttributeRows.h"
#include "Varnotix/modules/DcmSequence.h"

/// Item of a sequence that holds a code and modifiers of it, such as Anatomic Region (PS3.3 10.5): the code's
/// attributes are in the item itself.
///
/// Each such sequence has its own attribute for the modifiers, which its owner names.
class VARNOTIX_EXPORT CDcmCodeAndModifer : public CDcmSequence
{
    // clang-format off
    DCM_SEQUENCE_CLASS(CDcmCodeAndModifer)
    DCM_INITIALIZE_SEQUENCE()
    DCM_INCLUDE (Code, CDcmCodeSequenceMacroEx)
    DCM_SEQUENCE(Modifier, CDcmCodeSequenceMacroEx, m_group, m_element)
    // clang-format on

    /// @param group,element the tag of the modifiers' sequence in four hexadecimal digits each. The default
    ///        constructor takes Anatomic Region Modifier Sequence (0008,2220).
    CDcmCodeAndModifer(const CString& group, const CString& element);

private:
    friend struct SRowWalker;

    /// The tag that the rows take from the object.
    std::string DcmVariant() const { return std::string((m_group + m_element).View()); }

    CString m_group;
    CString m_element;
};
