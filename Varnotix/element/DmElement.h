/// The exported record of a data element.
#pragma once

#include "Varnotix/platform/Arrays.h"

class CDcmElement;

/// A small record through which a caller sees one element: tag, VR, VM, name, VR text and value bytes.
class VARNOTIX_EXPORT CDmElement
{
public:
    /// @param raw true for a record that receives the element's raw value bytes; false for one whose value bytes are
    ///        carried into the element (see CDcmElement::Exchange).
    explicit CDmElement(bool raw = true);
    CDmElement(const CDmElement&) = default;
    virtual ~CDmElement();

    /// Copies tag, VR, value bytes, VM, name and VR text. The present and raw flags stay as they are.
    CDmElement& operator=(const CDmElement& other);

    bool IsEqualGroup(int group) const { return m_group == group; }
    bool IsEqualElement(int element) const { return m_element == element; }
    bool IsEqualVr(int vr) const { return m_vr == vr; }
    bool IsEqualGroupElement(int group, int element) const { return IsEqualGroup(group) && IsEqualElement(element); }

    bool m_present = false; ///< The element was read from a stream.
    bool m_raw;             ///< Direction of the value; see the constructor.
    CByteArray m_value;     ///< Value bytes, little endian.
    int m_group = -1;       ///< Group number; -1 before the first exchange.
    int m_element = -1;     ///< Element number; -1 before the first exchange.
    int m_vr = -1;          ///< VR code (see EVr).
    int m_vm = 0;           ///< Value multiplicity of the dictionary; -1 means one or more.
    CString m_name;         ///< The attribute's name in the dictionary.
    CString m_vrText;       ///< The VR as two letters.
};
