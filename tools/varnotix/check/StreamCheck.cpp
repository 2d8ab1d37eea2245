// What is wrong with the stream of an object, and with its file meta information.

#include "check/ObjectCheck.h"
#include "object/Attributes.h"
#include "rewrite/FileMeta.h"

namespace Tag = Varnotix::Tag;

namespace
{

constexpr DWORD kImplementationClassUid = 0x00020012;
constexpr DWORD kPrivateInformationCreator = 0x00020100;
constexpr DWORD kPrivateInformation = 0x00020102;

CString WhatOf(const SReadNote& note)
{
    CString what;
    switch (note.note)
    {
    case READ_STOPPED:
        return CString("the read ended here: ") + Varnotix::ParseFaultText(static_cast<EParseFault>(note.count));
    case READ_OTHER_SYNTAX:
        return CString("the data set is in ") + SyntaxName(static_cast<int>(note.count)) +
               ", not in the transfer syntax that the file meta information names";
    case READ_UNKNOWN_VR:
        return "its VR is not one of the standard";
    case READ_HEADER_WITHOUT_VR:
        return "it has no VR";
    case READ_BEYOND_ITEM:
        what.Format("it reaches %lu bytes beyond the item or sequence around it",
                    static_cast<unsigned long>(note.count));
        return what;
    case READ_STRAY_DELIMITER:
        return "a delimiter is missing, or one too many";
    case READ_ODD_LENGTH:
        what.Format("its length of %lu bytes is odd", static_cast<unsigned long>(note.count));
        return what;
    case READ_OUT_OF_ORDER:
        return "it is not in the order of tags, or its tag is repeated";
    case READ_NO_ITEMS:
        return "it is a sequence, and holds other bytes than items";
    case READ_META_LENGTH:
        what.Format("group 0002 is not %lu bytes long", static_cast<unsigned long>(note.count));
        return what;
    case READ_NO_OFFSET_TABLE:
        return "it is encapsulated without an item for the offset table";
    case READ_BYTES_LEFT:
        what.Format("%lu bytes follow the last element", static_cast<unsigned long>(note.count));
        return what;
    default:
        return CString();
    }
}

void RequireValue(const CDcmElementSet& store, DWORD tag, CFindings& findings)
{
    const CDcmElement* element = store.Find(tag);
    if (element == nullptr)
    {
        findings.Error(ShownTag(tag), "missing in the file meta information");
    }
    else if (element->ValueBytes().Size() == 0)
    {
        findings.Error(ShownTag(tag), "empty in the file meta information");
    }
}

/// The file meta information repeats an attribute of the data set.
void RequireSame(const CDcmElementSet& store, DWORD metaTag, DWORD tag, CFindings& findings)
{
    const CString inMeta = TextOf(store, metaTag);
    const CString inSet = TextOf(store, tag);
    if (!inMeta.IsEmpty() && !inSet.IsEmpty() && inMeta != inSet)
    {
        findings.Error(ShownTag(metaTag), inMeta + " is not " + ShownTag(tag) + ", which is " + inSet);
    }
}

} // namespace

void CheckStream(const CDcmIOD& object, CFindings& findings)
{
    for (const SReadNote& note : object.ReadNotes())
    {
        const CString what = WhatOf(note);
        if (!what.IsEmpty())
        {
            CString offset;
            offset.Format(" (at offset %lu)", static_cast<unsigned long>(note.offset));
            findings.Error(note.tag == 0 ? CString("file") : ShownTag(note.tag), what + offset);
        }
    }
}

void CheckFileMeta(const CDcmIOD& object, CFindings& findings)
{
    const CDcmElementSet& store = object.ElementStore();
    const SObjectForm form = FormOf(object);
    if (form.isBare)
    {
        findings.Error("file", "it has no preamble and no DICM prefix (PS3.10 section 7.1)");
    }
    if (!form.hasMeta)
    {
        findings.Error("file", "it has no file meta information (PS3.10 section 7.1)");
        return;
    }
    for (const DWORD tag :
         {Tag::kFileMetaInformationGroupLength, Tag::kFileMetaInformationVersion, Tag::kMediaStorageSopClassUid,
          Tag::kMediaStorageSopInstanceUid, Tag::kTransferSyntaxUid, kImplementationClassUid})
    {
        RequireValue(store, tag, findings);
    }
    if (store.Find(kPrivateInformation) != nullptr)
    {
        RequireValue(store, kPrivateInformationCreator, findings);
    }
    RequireSame(store, Tag::kMediaStorageSopClassUid, Tag::kSopClassUid, findings);
    RequireSame(store, Tag::kMediaStorageSopInstanceUid, Tag::kSopInstanceUid, findings);
    if (!form.transferSyntax.IsEmpty() && CDcmRegistry::Global().UidEnum(form.transferSyntax) < 0)
    {
        findings.Warning(ShownTag(Tag::kTransferSyntaxUid),
                         form.transferSyntax + " is not a transfer syntax of the standard");
    }
}
