#include "rewrite/LossReport.h"

#include <algorithm>

namespace
{

struct SLossText
{
    const char* one;
    const char* many; // Takes the count.
};

constexpr SLossText kLossTexts[] = {
    {"1 sequence regrouped", "%d sequences regrouped"},
    {"1 sequence with elements from after its end", "%d sequences with elements from after their ends"},
    {"1 sequence without its items", "%d sequences without their items"},
    {"bytes after the last element lost", "bytes after the last element lost"},
    {"1 UN value lost", "%d UN values lost"},
    {"1 list without its empty values", "%d lists without their empty values"},
    {"1 value changed", "%d values changed"},
    {"1 element lost", "%d elements lost"},
    {"1 VR changed", "%d VRs changed"},
    {"1 VR not stated", "%d VRs not stated"},
    {"1 group length removed", "%d group lengths removed"},
    {"1 group length remade", "%d group lengths remade"},
    {"1 offset table changed", "%d offset tables changed"},
    {"1 compressed frame without item headers", "%d compressed frames without item headers"},
    {"1 sequence that other readers may not read", "%d sequences that other readers may not read"},
    {"1 fault of the input mended", "%d faults of the input mended"},
};
static_assert(std::size(kLossTexts) == static_cast<std::size_t>(ELoss::Count));

CString Number(const char* format, DWORD number)
{
    CString text;
    text.Format(format, static_cast<unsigned long>(number));
    return text;
}

/// The count and the noun, with the plural's "s" where it is needed.
CString Counted(DWORD count, const char* noun)
{
    return Number("%lu ", count) + noun + (count == 1 ? "" : "s");
}

} // namespace

void CLossReport::Add(ELoss kind, const CString& where, const CString& what)
{
    m_losses.push_back({kind, where + ": " + what});
}

void CLossReport::AddReadNotes(const CDcmIOD& object)
{
    constexpr DWORD kGroupLength = Varnotix::Tag::kFileMetaInformationGroupLength;
    const CDcmElementSet& store = object.ElementStore();
    const bool hasMeta = store.GetCount() > 0 && store.GetAt(0)->HasGroup(Varnotix::Tag::kMetaGroup);
    if (hasMeta && store.Find(kGroupLength) == nullptr)
    {
        Add(ELoss::InputMended, TagAndName(kGroupLength), "it was missing, and is added");
    }
    for (const SReadNote& note : object.ReadNotes())
    {
        const CDcmEntry* entry = CDcmRegistry::Global().LookUpTag(note.tag);
        const CString kept(entry != nullptr ? Varnotix::VrText(static_cast<int>(entry->vr)) : "");
        const CString where = TagAndName(note.tag) + Number(" at offset %lu", note.offset);
        switch (note.note)
        {
        case READ_ITEMS_GATHERED:
            Add(ELoss::ItemsRegrouped, where,
                "regrouped, one item per element (" + Counted(note.count, "item") + " read)");
            break;
        case READ_BEYOND_LENGTH:
            Add(ELoss::ElementsSwallowed, where,
                "what follows its end is written inside it (" + Counted(note.count, "byte") + ")");
            break;
        case READ_ITEMS_DROPPED:
            Add(ELoss::ItemsDropped, where,
                Counted(note.count, "item") + " lost, because the dictionary gives it VR " + kept);
            break;
        case READ_VR_OF_DICTIONARY:
            Add(ELoss::VrChanged, where,
                CString("VR ") + Varnotix::VrText(static_cast<int>(note.count)) + " replaced by the dictionary's " +
                    kept);
            break;
        case READ_BYTES_LEFT:
            Add(ELoss::BytesLeft, Number("offset %lu", note.offset),
                Counted(note.count, "byte") + " lost after the last element");
            break;
        default:
            AddMended(note, where);
            break;
        }
    }
}

void CLossReport::AddMended(const SReadNote& note, const CString& where)
{
    switch (note.note)
    {
    case READ_OTHER_SYNTAX:
        Add(ELoss::InputMended, where, CString("the data set is in ") + SyntaxName(static_cast<int>(note.count)));
        break;
    case READ_UNKNOWN_VR:
        Add(ELoss::InputMended, where, "an unknown VR is written as UN");
        break;
    case READ_HEADER_WITHOUT_VR:
        Add(ELoss::InputMended, where, "it had no VR");
        break;
    case READ_BEYOND_ITEM:
        Add(ELoss::InputMended, where, "it reached " + Counted(note.count, "byte") + " beyond the item around it");
        break;
    case READ_STRAY_DELIMITER:
        Add(ELoss::InputMended, where, "a delimiter was missing, or one too many");
        break;
    case READ_ODD_LENGTH:
        Add(ELoss::InputMended, where, "its odd length of " + Counted(note.count, "byte") + " is made even");
        break;
    case READ_OUT_OF_ORDER:
        Add(ELoss::InputMended, where, "it is moved to its place in the order of tags");
        break;
    case READ_NO_ITEMS:
        Add(ELoss::InputMended, where, "it did not hold items, and is written with VR UN");
        break;
    case READ_META_LENGTH:
        Add(ELoss::InputMended, where, "its wrong value is corrected");
        break;
    case READ_NO_OFFSET_TABLE:
        Add(ELoss::InputMended, where, "it had no offset table, and is written with an empty one");
        break;
    default:
        break;
    }
}

int CLossReport::CountOf(ELoss kind) const
{
    return static_cast<int>(
        std::count_if(m_losses.begin(), m_losses.end(), [kind](const SLoss& loss) { return loss.kind == kind; }));
}

CString CLossReport::Summary() const
{
    CString summary;
    for (int i = 0; i < static_cast<int>(ELoss::Count); ++i)
    {
        const int count = CountOf(static_cast<ELoss>(i));
        if (count == 0)
        {
            continue;
        }
        CString part(kLossTexts[i].one);
        if (count > 1)
        {
            part.Format(kLossTexts[i].many, count);
        }
        summary += (summary.IsEmpty() ? CString() : CString(", ")) + part;
    }
    return summary;
}

void CLossReport::Print(const CString& input, const CReport& report) const
{
    if (IsEmpty())
    {
        return;
    }
    if (!report.IsVerbose())
    {
        report.Say(input + ": written with changes: " + Summary() + " (use -v)");
        return;
    }
    for (const SLoss& loss : m_losses)
    {
        report.Detail(input + ": " + loss.text);
    }
}
