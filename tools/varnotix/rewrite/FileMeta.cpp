#include "rewrite/FileMeta.h"

#include "object/Attributes.h"

#include <string_view>
#include <utility>

namespace Tag = Varnotix::Tag;

namespace
{

// What the library has no names for.
constexpr DWORD kImplementationClassTag = 0x00020012;
constexpr DWORD kImplementationVersionTag = 0x00020013;

// The UUID was made for this program (PS3.5 Annex B.2).
constexpr const char* kImplementationClass = "2.25.284450905997484935616895374592928984362";
constexpr const char* kImplementationVersion = "VARNOTIX_0_1";

/// @param isNamed whether the transfer syntax is one of compressed pixel data.
/// @param isByCount whether several frames that were not read as native are compressed, whatever the syntax says.
bool HasCompressedFrames(const CDcmElementSet& set, bool isNamed, bool isByCount)
{
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (const CDcmFrameList* frames = element.Frames())
        {
            const CDcmFrameList::EForm form = frames->ReadForm();
            const bool isGuessed = (isNamed && frames->GetCount() > 0) || (isByCount && frames->GetCount() > 1);
            if (form == CDcmFrameList::FORM_ENCAPSULATED || (form == CDcmFrameList::FORM_UNKNOWN && isGuessed))
            {
                return true;
            }
        }
        if (element.Items() != nullptr && HasCompressedFrames(*element.Items(), isNamed, isByCount))
        {
            return true;
        }
    }
    return false;
}

bool IsUncompressed(const CString& uid)
{
    return Varnotix::IsNative(CDcmRegistry::Global().UidEnum(uid));
}

CString Place(const CString& input, DWORD tag)
{
    return input + ": " + TagAndName(tag);
}

bool IsDirectory(const CDcmElementSet& store)
{
    constexpr int kDirectoryGroup = 0x0004;
    for (int i = 0; i < store.GetCount(); ++i)
    {
        if (store.GetAt(i)->HasGroup(kDirectoryGroup))
        {
            return true;
        }
    }
    return TextOf(store, Tag::kMediaStorageSopClassUid) == "1.2.840.10008.1.3.10";
}

void AddText(CDcmElementSet& store, const CString& input, DWORD tag, const CString& text, char padding,
             const CReport& report)
{
    if (!TextOf(store, tag).IsEmpty())
    {
        return;
    }
    if (text.IsEmpty())
    {
        report.Say(Place(input, tag) + ": missing, because the data set does not name it");
        return;
    }
    SetText(store, tag, text.View(), padding);
    report.Detail(Place(input, tag) + ": added as " + text);
}

} // namespace

SObjectForm FormOf(const CDcmIOD& object)
{
    const CDcmElementSet& store = object.ElementStore();
    SObjectForm form;
    form.syntax = object.IodSyntax();
    form.transferSyntax = TextOf(store, Tag::kTransferSyntaxUid);
    for (int i = 0; i < store.GetCount() && !form.hasMeta; ++i)
    {
        form.hasMeta = store.GetAt(i)->HasGroup(Tag::kMetaGroup);
    }
    const bool namesCompression = !form.transferSyntax.IsEmpty() && !IsUncompressed(form.transferSyntax);
    const bool isClassic = object.StreamRules() == STREAM_RULES_CLASSIC;
    form.compressed = HasCompressedFrames(store, namesCompression, isClassic);
    form.isBare = !isClassic && !object.FileFormat();
    form.isDirectory = IsDirectory(store);
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
                     "), which can only be written in its own syntax: use --syntax explicit, or none");
        return CString();
    }
    report.Say(input + ": its pixel data is compressed, so the output keeps the transfer syntax " +
               form.transferSyntax);
    return form.transferSyntax;
}

CString UidToKeep(const SObjectForm& form, const CString& input, const CReport& report)
{
    const int named = Varnotix::SyntaxOfUid(form.transferSyntax);
    if (!form.transferSyntax.IsEmpty() && (named == form.syntax || named == SYNTAX_UNKNOWN))
    {
        return form.transferSyntax;
    }
    return UidToWrite(form, input, form.syntax, report);
}

void CompleteFileMeta(CDcmIOD& object, const CString& input, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    const CDcmElement* version = store.Find(Tag::kFileMetaInformationVersion);
    if (version == nullptr || version->IsEmptyValue())
    {
        SetText(store, Tag::kFileMetaInformationVersion, std::string_view("\0\1", 2), '\0');
        report.Detail(Place(input, Tag::kFileMetaInformationVersion) + ": added as 00 01");
    }
    AddText(store, input, Tag::kMediaStorageSopClassUid, TextOf(store, Tag::kSopClassUid), '\0', report);
    AddText(store, input, Tag::kMediaStorageSopInstanceUid, TextOf(store, Tag::kSopInstanceUid), '\0', report);
    AddText(store, input, kImplementationClassTag, kImplementationClass, '\0', report);
    AddText(store, input, kImplementationVersionTag, kImplementationVersion, ' ', report);
}

void DeclareTransferSyntax(CDcmIOD& object, const CString& uid, const CString& input, const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    const CString present = TextOf(store, Tag::kTransferSyntaxUid);
    if (uid == present || (uid.IsEmpty() && IsUncompressed(present)))
    {
        return;
    }
    if (!present.IsEmpty())
    {
        report.Say(Place(input, Tag::kTransferSyntaxUid) + ": " + present + " replaced by that of the pixel data");
    }
    store.Remove(Tag::kTransferSyntaxUid);
    if (!uid.IsEmpty())
    {
        SetText(store, Tag::kTransferSyntaxUid, uid.View(), '\0');
    }
}

void ReportMetaMismatch(const CDcmIOD& object, const CString& input, const CReport& report)
{
    const CDcmElementSet& store = object.ElementStore();
    for (const auto& [meta, tag] : {std::pair(Tag::kMediaStorageSopClassUid, Tag::kSopClassUid),
                                    std::pair(Tag::kMediaStorageSopInstanceUid, Tag::kSopInstanceUid)})
    {
        const CString inMeta = TextOf(store, meta);
        const CString inData = TextOf(store, tag);
        if (!inMeta.IsEmpty() && !inData.IsEmpty() && inMeta != inData)
        {
            report.Say(Place(input, meta) + ": differs from the data set: " + inMeta + ", " + inData);
        }
    }
}

void SetFileMeta(CDcmIOD& object, const SObjectForm& form, const CString& input, const CString& uid,
                 const CReport& report)
{
    CDcmElementSet& store = object.ElementStore();
    object.FileFormat(true);
    if (!form.hasMeta)
    {
        CompleteFileMeta(object, input, report);
    }
    if (form.transferSyntax != uid)
    {
        SetText(store, Tag::kTransferSyntaxUid, uid.View(), '\0');
        report.Detail(Place(input, Tag::kTransferSyntaxUid) + ": " +
                      (form.transferSyntax.IsEmpty() ? "added as " : "changed to ") + uid);
    }
}

CString PixelDataMismatch(const CDcmElementSet& store, const CString& uid)
{
    using Varnotix::EPixelForm;
    const CDcmElement* element = store.Find(Tag::kPixelData);
    const CDcmFrameList* frames = element != nullptr ? element->Frames() : nullptr;
    const EPixelForm named = Varnotix::PixelFormOfUid(uid);
    const CDcmFrameList::EForm form = frames != nullptr ? frames->ReadForm() : CDcmFrameList::FORM_UNKNOWN;
    if (form == CDcmFrameList::FORM_ENCAPSULATED && named == EPixelForm::Native)
    {
        return "its pixel data is encapsulated, but transfer syntax " + uid + " is one of native pixel data";
    }
    if (form == CDcmFrameList::FORM_NATIVE && named == EPixelForm::Encapsulated)
    {
        return "its pixel data is native, but transfer syntax " + uid + " is one of encapsulated pixel data";
    }
    return CString();
}

void SetPixelDataVr(CDcmElementSet& set, const CString& input, const CReport& report)
{
    constexpr WORD kBitsOfByte = 8;
    const CDcmElement* allocated = set.Find(Tag::kBitsAllocated);
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
