/// A module without fixed tags.
#pragma once

#include "Varnotix/modules/DcmModule.h"

/// Holds whatever elements its user inserts, by tag. Values are set and got by tag too.
///
/// Every operation returns false, and changes nothing, when the tag is not in the module or its VR does not hold the
/// kind of value; getters then leave the value as it is. Each takes an optional record, which receives the element's
/// description (see CDcmElement::Exchange).
class VARNOTIX_EXPORT CDcmAttributeModule : public CDcmModule
{
    DECLARE_DYNCREATE(CDcmAttributeModule)

public:
    CDcmAttributeModule();
    CDcmAttributeModule(const CDcmAttributeModule& other);
    ~CDcmAttributeModule() override;
    CDcmAttributeModule& operator=(const CDcmAttributeModule& other);

    /// Makes sure that the module holds an element of a tag that the dictionary knows. An element that is there stays.
    bool Insert(const CString& group, const CString& element, CDmElement* record = nullptr);
    /// Inserts a tag that the dictionary lacks, with its VR and multiplicity; see CDcmElementSet::Insert.
    bool Insert(const CString& group, const CString& element, const CString& vr, const CString& multiplicity,
                CDmElement* record = nullptr);

    bool SetValueField(const CString& group, const CString& element, const CString& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CStringArray& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, unsigned short value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CWordArray& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, DWORD value, CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CUIntArray& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, float value, CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CFloatArray& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, double value, CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CDoubleArray& value,
                       CDmElement* record = nullptr);
    bool SetValueField(const CString& group, const CString& element, const CByteArray& value,
                       CDmElement* record = nullptr);
    /// Pixel Data: replaces all frames by the arrays of the list, all of them CByteArray or all CWordArray.
    bool SetValueField(const CString& group, const CString& element, const CObList& frames,
                       CDmElement* record = nullptr);
    /// SQ: replaces the items by copies of the module's elements.
    bool SetValueField(const CString& group, const CString& element, const CDcmAttributeModule& item,
                       CDmElement* record = nullptr);

    /// The first text; empty for an element without value.
    bool GetValueField(const CString& group, const CString& element, CString& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CStringArray& value, CDmElement* record = nullptr);
    /// The first number; false for an element without value.
    bool GetValueField(const CString& group, const CString& element, unsigned short& value,
                       CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CWordArray& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, DWORD& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CUIntArray& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, float& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CFloatArray& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, double& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CDoubleArray& value, CDmElement* record = nullptr);
    bool GetValueField(const CString& group, const CString& element, CByteArray& value, CDmElement* record = nullptr);
    /// Pixel Data: the frames' byte arrays, which stay owned by the element.
    bool GetValueField(const CString& group, const CString& element, CObList& frames, CDmElement* record = nullptr);
    /// SQ: the module, which may be this one, becomes a copy of the items.
    bool GetValueField(const CString& group, const CString& element, CDcmAttributeModule& item,
                       CDmElement* record = nullptr);

    /// Removes every element.
    void RemoveAll();

private:
    template <class USE>
    bool With(const CString& group, const CString& element, CDmElement* record, const USE& use);
};
