#include "rewrite/FileMeta.h"

#include <string_view>
#include <utility>

namespace
{

constexpr int kMetaGroup = 0x0002;

// The UUID was made for this program (PS3.5 Annex B.2).
constexpr const char* kImplementationClass = "2.25.284450905997484935616895374592928984362";
constexpr const char* kImplementationVersion = "VARNOTIX_0_1";

bool HasPixelData(const CDcmElementSet& set, bool divided)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (element.Frames() != nullptr && element.Frames()->GetCount() >= (divided ? 2 : 1))
        {
            return true;
        }
        if (element.Items() != nullptr && HasPixelData(*element.Items(), divided))
        {
            return true;
        }
    }
    return false;
}

/// Rows 1 to 4 of the UID table: transfer syntaxes of uncompressed pixel data. A deflated object is inflated by the
/// read.
bool IsUncompressed(const CString& uid)
{
    constexpr int kLastUncompressedRow = 4;
    const int row = CDcmRegistry::Global().UidEnum(uid);
    return row >= SYNTAX_IMPLICIT_LITTLE && row <= kLastUncompressedRow;
}

CString TextOf(const CDcmElementSet& set, int group, int element)
{
    const CDcmElement* found = set.Find(group, element);
    CString text = found != nullptr ? CString(std::string_view(found->JoinedText().CText())) : CString();
    text.Trim();
    return text;
}

/// Sets raw bytes, because a rewrite is compared by raw bytes.
void SetMeta(CDcmElementSet& store, int element, std::string_view value, char padding)
{
    CByteArray bytes;
    bytes.Assign(reinterpret_cast<const BYTE*>(value.data()), static_cast<int>(value.size()));
    if (bytes.GetSize() % 2 == 1)
    {
        bytes.Add(static_cast<BYTE>(padding));
    }
    if (CDcmElement* present = store.Find(kMetaGroup, element))
    {
        present->SetRawBytes(bytes);
    }
    else
    {
        store.Add(new CDcmElement(kMetaGroup, element, bytes));
    }
}

CString MetaPlace(const CString& input, int element)
{
    return input + ": " + TagAndName((static_cast<DWORD>(kMetaGroup) << 16U) | static_cast<DWORD>(element));
}

void AddText(CDcmElementSet& store, const CString& input, int element, const CString& text, char padding,
             const CReport& report)
{
    if (!TextOf(store, kMetaGroup, element).IsEmpty())
    {
        return;
    }
    if (text.IsEmpty())
    {
        report.Say(MetaPlace(input, element) + ": missing, because the data set does not name it");
        return;
    }
    SetMeta(store, element, text.View(), padding);
    report.Detail(MetaPlace(input, element) + ": added as " + text);
}

} // namespace

SObjectForm FormOf(const CDcmIOD& object)
{
    const CDcmElementSet& store = object.ElementStore();
    SObjectForm form;
    form.syntax = object.IodSyntax();
    form.transferSyntax = TextOf(store, kMetaGroup, 0x0010);
    for (int i = 0; i < store.GetCount() && !form.hasMeta; ++i)
    {
        form.hasMeta = store.GetAt(i)->HasGroup(kMetaGroup);
    }
    const bool namesCompression = !form.transferSyntax.IsEmpty() && !IsUncompressed(form.transferSyntax);
    form.compressed = HasPixelData(store, true) || (namesCompression && HasPixelData(store, false));
    return form;
}

CString UidToWrite(const SObjectForm& form, const CString& input, int syntax, const CReport& report)
{
    CString wanted = CDcmRegistry::Global().UidString(syntax);
    if (!form.compressed || form.transferSyntax == wanted)
    {
        return wanted;
    }
    if (form.transferSyntax.IsEmpty())
    {
        report.Error(input + ": its pixel data is compressed, but it does not name its transfer syntax");
        return CString();
    }
    if (syntax != SYNTAX_EXPLICIT_LITTLE || form.syntax != SYNTAX_EXPLICIT_LITTLE)
    {
        report.Error(input + ": its pixel data is compressed (transfer syntax " + form.transferSyntax +
                     "), which can only be written in its own syntax: use --syntax explicit");
        return CString();
    }
    report.Say(input + ": its pixel data is compressed, so the output keeps the transfer syntax " +
               form.transferSyntax);
    return form.transferSyntax;
}

CString UidToKeep(const SObjectForm& form, const CString& input, const CReport& report)
{
    if (form.compressed && SyntaxOfUid(form.transferSyntax) == form.syntax)
    {
        return form.transferSyntax;
    }
    return UidToWrite(form, input, form.syntax, report);
}

void CompleteFileMeta(CDcmIOD& object, const CString& input, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    const CDcmElement* version = store.Find(kMetaGroup, 0x0001);
    if (version == nullptr || version->IsEmptyValue())
    {
        SetMeta(store, 0x0001, std::string_view("\0\1", 2), '\0');
        report.Detail(MetaPlace(input, 0x0001) + ": added as 00 01");
    }
    AddText(store, input, 0x0002, TextOf(store, 0x0008, 0x0016), '\0', report);
    AddText(store, input, 0x0003, TextOf(store, 0x0008, 0x0018), '\0', report);
    AddText(store, input, 0x0012, kImplementationClass, '\0', report);
    AddText(store, input, 0x0013, kImplementationVersion, ' ', report);
}

void DeclareTransferSyntax(CDcmIOD& object, const CString& uid, const CString& input, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    const CString present = TextOf(store, kMetaGroup, 0x0010);
    if (uid == present || (uid.IsEmpty() && IsUncompressed(present)))
    {
        return;
    }
    if (!present.IsEmpty())
    {
        report.Say(MetaPlace(input, 0x0010) + ": " + present + " replaced by that of the pixel data");
    }
    store.Remove(kMetaGroup, 0x0010);
    if (!uid.IsEmpty())
    {
        SetMeta(store, 0x0010, uid.View(), '\0');
    }
}

void ReportMetaMismatch(const CDcmIOD& object, const CString& input, const CReport& report)
{
    const CDcmElementSet& store = object.ElementStore();
    for (const auto& [meta, element] : {std::pair(0x0002, 0x0016), std::pair(0x0003, 0x0018)})
    {
        const CString inMeta = TextOf(store, kMetaGroup, meta);
        const CString inData = TextOf(store, 0x0008, element);
        if (!inMeta.IsEmpty() && !inData.IsEmpty() && inMeta != inData)
        {
            report.Say(MetaPlace(input, meta) + ": differs from the data set: " + inMeta + ", " + inData);
        }
    }
}

void SetFileMeta(CDcmIOD& object, const SObjectForm& form, const CString& input, const CString& uid,
                 const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    if (!form.hasMeta)
    {
        CompleteFileMeta(object, input, report);
    }
    if (form.transferSyntax != uid)
    {
        SetMeta(store, 0x0010, uid.View(), '\0');
        report.Detail(MetaPlace(input, 0x0010) + ": " + (form.transferSyntax.IsEmpty() ? "added as " : "changed to ") +
                      uid);
    }
}

void SetPixelDataVr(CDcmElementSet& set, const CString& input, const CReport& report)
{
    constexpr WORD kBitsOfByte = 8;
    const CDcmElement* allocated = set.Find(0x0028, 0x0100);
    const CWordArray* bits = allocated != nullptr ? allocated->Words() : nullptr;
    const bool hasWords = bits != nullptr && !bits->IsEmpty() && (*bits)[0] > kBitsOfByte;
    for (int i = 0; i < set.GetCount(); ++i)
    {
        CDcmElement& element = *set.GetAt(i);
        if (element.IsPixelData() && element.HasVr(VR_OB) && hasWords)
        {
            element.ForcePixelVr(VR_OW);
            CString text;
            text.Format(": VR OW, because it has %d bits per sample", static_cast<int>((*bits)[0]));
            report.Detail(input + ": " + TagAndName(element.Tag()) + text);
        }
        if (element.Items() != nullptr)
        {
            SetPixelDataVr(*element.Items(), input, report);
        }
    }
}
