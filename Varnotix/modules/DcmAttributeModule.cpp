#include "Varnotix/modules/DcmAttributeModule.h"

IMPLEMENT_DYNCREATE(CDcmAttributeModule, CDcmModule)

namespace
{

/// Copies an array out, when the element holds one.
template <class ARRAY>
bool CopyOut(const ARRAY* from, ARRAY& to)
{
    if (from == nullptr)
    {
        return false;
    }
    to = *from;
    return true;
}

/// Copies the first number out, when there is one.
template <class ARRAY, class NUMBER>
bool FirstOut(const ARRAY* from, NUMBER& to)
{
    if (from == nullptr || from->IsEmpty())
    {
        return false;
    }
    to = (*from)[0];
    return true;
}

} // namespace

CDcmAttributeModule::CDcmAttributeModule() = default;

CDcmAttributeModule::CDcmAttributeModule(const CDcmAttributeModule& other) = default;

CDcmAttributeModule::~CDcmAttributeModule() = default;

CDcmAttributeModule& CDcmAttributeModule::operator=(const CDcmAttributeModule& other) = default;

/// Runs an operation on the element of the tag and fills the record.
template <class USE>
bool CDcmAttributeModule::With(const CString& group, const CString& element, CDmElement* record, const USE& use)
{
    CDcmElement* found = GetDcmElementSet().Find(group, element);
    if (found == nullptr || !use(*found))
    {
        return false;
    }
    if (record != nullptr)
    {
        found->Exchange(*record);
    }
    return true;
}

bool CDcmAttributeModule::Insert(const CString& group, const CString& element, CDmElement* record)
{
    if (GetDcmElementSet().Find(group, element) == nullptr)
    {
        GetDcmElementSet().AddKnown(group, element);
    }
    return With(group, element, record, [](const CDcmElement&) { return true; });
}

bool CDcmAttributeModule::Insert(const CString& group, const CString& element, const CString& vr,
                                 const CString& multiplicity, CDmElement* record)
{
    const CDcmElement* inserted = GetDcmElementSet().Insert(group, element, vr, multiplicity);
    return inserted != nullptr && With(group, element, record, [](const CDcmElement&) { return true; });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CString& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.AddText(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CStringArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetTexts(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, unsigned short value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.AddWord(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CWordArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetWords(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, DWORD value, CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.AddInteger(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CUIntArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetIntegers(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, float value, CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.AddFloat(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CFloatArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetFloats(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, double value, CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.AddDouble(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CDoubleArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetDoubles(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CByteArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetBytes(value); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CObList& frames,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetFrames(frames); });
}

bool CDcmAttributeModule::SetValueField(const CString& group, const CString& element, const CDcmAttributeModule& item,
                                        CDmElement* record)
{
    return With(group, element, record, [&](CDcmElement& target) { return target.SetItems(item.GetDcmElementSet()); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CString& value,
                                        CDmElement* record)
{
    return With(group, element, record,
                [&](const CDcmElement& source)
                {
                    const CStringArray* texts = source.Texts();
                    if (texts != nullptr)
                    {
                        value = texts->IsEmpty() ? CString() : (*texts)[0];
                    }
                    return texts != nullptr;
                });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CStringArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Texts(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, unsigned short& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return FirstOut(source.Words(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CWordArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Words(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, DWORD& value, CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return FirstOut(source.Integers(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CUIntArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Integers(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, float& value, CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return FirstOut(source.Floats(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CFloatArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Floats(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, double& value, CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return FirstOut(source.Doubles(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CDoubleArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Doubles(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CByteArray& value,
                                        CDmElement* record)
{
    return With(group, element, record, [&](const CDcmElement& source) { return CopyOut(source.Bytes(), value); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CObList& frames,
                                        CDmElement* record)
{
    return With(group, element, record,
                [&](CDcmElement& source) { return source.Frames() != nullptr && source.GetFrames(frames); });
}

bool CDcmAttributeModule::GetValueField(const CString& group, const CString& element, CDcmAttributeModule& item,
                                        CDmElement* record)
{
    // The item may be this very module, whose elements go.
    CDcmElementSet items;
    const bool found = With(group, element, record,
                            [&](const CDcmElement& source)
                            {
                                if (source.Items() != nullptr)
                                {
                                    items.CopyByValue(*source.Items());
                                }
                                return source.Items() != nullptr;
                            });
    if (found)
    {
        item.RemoveAll();
        item.GetDcmElementSet().CopyByReference(items);
    }
    return found;
}

void CDcmAttributeModule::RemoveAll()
{
    DestroySet();
}
