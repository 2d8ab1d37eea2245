#include "edit/ObjectEdit.h"

#include "console/Report.h"
#include "edit/TextConversion.h"
#include "edit/ValueEncoder.h"
#include "object/Attributes.h"
#include "object/ElementMaker.h"

#include <algorithm>
#include <set>

using namespace Varnotix;

namespace
{

constexpr DWORD kSpecificCharacterSet = 0x00080005;

CString Counted(int count, const char* one, const char* many)
{
    CString text;
    text.Format(count == 1 ? one : many, count);
    return text;
}

bool IsSigned(const CDcmElementSet& store, const CDcmElementSet& set, int item)
{
    const CDcmElement* own = FindInSet(set, item, Tag::kPixelRepresentation);
    const CDcmElement* representation = own != nullptr ? own : store.Find(Tag::kPixelRepresentation);
    const CWordArray* words = representation != nullptr ? representation->Words() : nullptr;
    return words != nullptr && !words->IsEmpty() && (*words)[0] == 1;
}

} // namespace

void CObjectEdit::AddFault(const CString& what)
{
    m_faults.push_back(m_path + ": " + what);
}

bool CObjectEdit::MayGoOn(const SEditReason& reason)
{
    if (reason.text.IsEmpty() || (m_isForced && !reason.isFinal))
    {
        return true;
    }
    AddFault(reason.text + (reason.isFinal ? "" : "; --force edits it"));
    return false;
}

CString CObjectEdit::Summary() const
{
    return Counted(m_changed, "%d value changed, ", "%d values changed, ") +
           Counted(m_added, "%d attribute added, ", "%d attributes added, ") +
           Counted(m_deleted, "%d deleted", "%d deleted");
}

void CObjectEdit::Assign(const SAssignment& assignment)
{
    m_assignment = &assignment;
    m_element = nullptr;
    if (assignment.path.Steps().size() == 1)
    {
        m_assigned.insert(assignment.path.Steps().front().tag);
    }
    Follow(assignment.path);
}

void CObjectEdit::Place(const CElementPath& path, const CDcmElement& element)
{
    m_assignment = nullptr;
    m_element = &element;
    Follow(path);
}

void CObjectEdit::Follow(const CElementPath& path)
{
    m_steps = &path;
    m_path = path.Text();
    const int before = m_added + m_changed;
    const std::size_t faults = m_faults.size();
    // Following recurses, and no reader would accept deeper sequences.
    if (path.Steps().size() > static_cast<std::size_t>(CAslReader::kMaxDepth))
    {
        AddFault("the path is too deep");
        return;
    }
    Enter(m_store, 0, CCharacterSet(), 0);
    if (m_faults.size() == faults)
    {
        m_details.push_back(m_path + (m_added + m_changed == before ? ": stays as it is" : ": set"));
    }
}

/// Takes one step of the path.
void CObjectEdit::Enter(CDcmElementSet& set, int item, const CCharacterSet& around, std::size_t index)
{
    const CCharacterSet characters = CCharacterSet::Of(set, item, around);
    const std::vector<SPathStep>& steps = m_steps->Steps();
    const SPathStep& step = steps[index];
    const std::optional<DWORD> tag = TagIn(set, item, step, characters);
    if (!tag)
    {
        return;
    }
    if (index + 1 == steps.size() && step.item == SPathStep::kNoItem)
    {
        if (m_element != nullptr)
        {
            PlaceElement(set, item, *tag);
        }
        else
        {
            SetElement(set, item, *tag, characters);
        }
        return;
    }
    CDcmElement* sequence = FindInSet(set, item, *tag);
    if (sequence == nullptr)
    {
        sequence = step.item == SPathStep::kEveryItem ? nullptr : AddSequence(set, item, *tag);
    }
    else if (sequence->Items() == nullptr)
    {
        AddFault(TagAndName(*tag) + " is not a sequence");
        sequence = nullptr;
    }
    if (sequence != nullptr)
    {
        EnterItems(*sequence, characters, index);
    }
}

void CObjectEdit::EnterItems(CDcmElement& sequence, const CCharacterSet& characters, std::size_t index)
{
    const std::vector<SPathStep>& steps = m_steps->Steps();
    CDcmElementSet& items = *sequence.Items();
    const int count = items.ItemCount();
    const int wanted = steps[index].item;
    int first = wanted == SPathStep::kEveryItem || wanted == SPathStep::kNoItem ? 1 : wanted;
    first = wanted == SPathStep::kNewItem ? count + 1 : first;
    const int last = wanted == SPathStep::kEveryItem ? count : first;
    if (first > count + 1)
    {
        AddFault(TagAndName(sequence.Tag()) + Counted(count, " has %d item", " has %d items"));
        return;
    }
    const bool isLast = index + 1 == steps.size();
    if (isLast && (m_assignment == nullptr || !m_assignment->value.IsEmpty()))
    {
        AddFault("an item has no value; name an attribute of it");
        return;
    }
    for (int item = first; item <= last; ++item)
    {
        if (item > count)
        {
            items.BeginItem();
            m_added += isLast ? 1 : 0;
        }
        if (!isLast)
        {
            Enter(items, item, characters, index + 1);
        }
    }
}

/// The tag that a step means in this set; a private block is reserved where there is none.
std::optional<DWORD> CObjectEdit::TagIn(CDcmElementSet& set, int item, const SPathStep& step,
                                        const CCharacterSet& characters)
{
    if (step.creator.IsEmpty())
    {
        return step.tag;
    }
    const std::optional<DWORD> tag = FindPrivateTag(set, item, step.tag, step.creator.View());
    if (tag || step.item == SPathStep::kEveryItem)
    {
        return tag;
    }
    if (!CheckValue("LO", {1, 1, 1}, step.creator.View(), characters).empty() && !m_isForced)
    {
        AddFault("the private creator is not a value of VR LO");
        return std::nullopt;
    }
    return ReserveBlock(set, item, step);
}

std::optional<DWORD> CObjectEdit::ReserveBlock(CDcmElementSet& set, int item, const SPathStep& step)
{
    constexpr int kFirst = 0x10;
    constexpr int kLast = 0xFF;
    const int group = Tag::Group(step.tag);
    std::set<int> used; // Also blocks that nobody reserved.
    for (int i = 0; i < set.GetCount(); ++i)
    {
        const CDcmElement& element = *set.GetAt(i);
        if (element.HasGroup(group) && (item == 0 || std::max(element.Item(), 1) == item))
        {
            used.insert(element.Element() <= kLast ? element.Element() : element.Element() >> 8);
        }
    }
    for (int block = kFirst; block <= kLast; ++block)
    {
        if (used.count(block) == 0)
        {
            std::string creator(step.creator.View());
            creator += creator.size() % 2 == 1 ? " " : "";
            Replace(set, item, nullptr, MakeElement(Tag::Make(group, block), "LO", creator));
            return Tag::Make(group, block << 8 | (Tag::Element(step.tag) & 0xFF));
        }
    }
    AddFault("all private blocks of the group are reserved");
    return std::nullopt;
}

CDcmElement* CObjectEdit::AddSequence(CDcmElementSet& set, int item, DWORD tag)
{
    const CString listed = ListedVr(tag, false);
    if (!(listed == "SQ") && !(listed.IsEmpty() && Tag::IsPrivate(tag)))
    {
        AddFault(TagAndName(tag) + " is not a sequence");
        return nullptr;
    }
    const SEditReason reason = ReasonAgainstSetting(set, item, tag);
    if (!MayGoOn(reason))
    {
        return nullptr;
    }
    CDcmElement* sequence = Replace(set, item, nullptr, MakeElement(tag, "SQ"));
    sequence->Items()->SetKeepsItems(true);
    return sequence;
}

CDcmElement* CObjectEdit::Replace(CDcmElementSet& set, int item, const CDcmElement* present,
                                  std::unique_ptr<CDcmElement> made)
{
    if (present != nullptr)
    {
        set.Remove(present);
    }
    CDcmElement* added = made.get();
    set.SelectItem(item);
    set.Add(made.release());
    return added;
}

/// The VR that the element is to have; empty after a fault.
CString CObjectEdit::VrFor(const CDcmElementSet& set, int item, DWORD tag, const CDcmElement* present)
{
    const CString& wanted = m_assignment->vr;
    if (!wanted.IsEmpty() && !IsVr(wanted.View()))
    {
        AddFault("there is no VR " + wanted);
        return CString();
    }
    CString vr = present != nullptr ? CString(present->VrLetters()) : ListedVr(tag, IsSigned(m_store, set, item));
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    const bool isOpen =
        vr.IsEmpty() || (present != nullptr ? vr == "UN" : entry != nullptr && entry->choice != EVrChoice::None);
    if (!wanted.IsEmpty() && !(wanted == vr) && !isOpen && !m_isForced)
    {
        AddFault("it has VR " + vr + (present != nullptr ? " in this object" : " in the dictionary") +
                 "; --force gives it VR " + wanted);
        return CString();
    }
    vr = wanted.IsEmpty() ? vr : wanted;
    if (vr.IsEmpty())
    {
        AddFault("the dictionary does not list it: give its VR before the equals sign, as in (0009,1001):LO=TEXT");
    }
    return vr;
}

void CObjectEdit::SetElement(CDcmElementSet& set, int item, DWORD tag, const CCharacterSet& characters)
{
    const CDcmElement* present = FindInSet(set, item, tag);
    const CString vr = MayGoOn(ReasonAgainstSetting(set, item, tag)) ? VrFor(set, item, tag, present) : CString();
    if (vr.IsEmpty())
    {
        return;
    }
    // Sequences of VR UN among them.
    const bool isSequence =
        vr == "SQ" || (m_assignment->vr.IsEmpty() && present != nullptr && present->Items() != nullptr);
    if (isSequence && !m_assignment->value.IsEmpty())
    {
        AddFault("it is a sequence; name an attribute of one of its items");
        return;
    }
    const SEncodedText value = EncodeValue(m_assignment->value.View(), vr.View(), characters);
    if (!value.reason.IsEmpty())
    {
        const bool canConvert = value.isForeign && CCharacterSet::AppliesTo(vr.View());
        AddFault(
            value.reason +
            (canConvert ? "; 'SpecificCharacterSet=ISO_IR 192' before this edit converts all texts to UTF-8" : ""));
        return;
    }
    const std::vector<SValueFault> wrong = CheckValue(vr.View(), MultiplicityOf(tag), value.bytes, characters);
    if (!wrong.empty() && !m_isForced)
    {
        AddFault(wrong.front().what + "; --force sets it");
        return;
    }
    if (present != nullptr && vr == present->VrLetters() &&
        (isSequence ? present->Items()->ItemCount() == 0 : value.bytes == present->ValueBytes().View()))
    {
        return;
    }
    if (tag == kSpecificCharacterSet && !m_isForced && !ConvertTexts(set, item, characters, CCharacterSet(value.bytes)))
    {
        return;
    }
    ++(present != nullptr ? m_changed : m_added);
    CDcmElement* made = Replace(set, item, present, MakeElement(tag, vr.View(), value.bytes));
    if (isSequence)
    {
        made->Items()->SetKeepsItems(true);
    }
}

void CObjectEdit::PlaceElement(CDcmElementSet& set, int item, DWORD tag)
{
    if (tag != m_element->Tag() || tag == Tag::kTransferSyntaxUid || tag == Tag::kFileMetaInformationGroupLength)
    {
        AddFault("the element cannot be placed there");
        return;
    }
    const CDcmElement* present = FindInSet(set, item, tag);
    ++(present != nullptr ? m_changed : m_added);
    auto copy = std::make_unique<CDcmElement>(*m_element);
    copy->SetItem(0); // That of this set.
    Replace(set, item, present, std::move(copy));
}

bool CObjectEdit::ConvertTexts(CDcmElementSet& set, int item, const CCharacterSet& from, const CCharacterSet& to)
{
    if (!to.UnknownTerm().empty())
    {
        AddFault(CString(std::string_view("there is no character set " + to.UnknownTerm() + "; --force sets it")));
        return false;
    }
    const CString fault = ConvertTextsOf(set, item, from, to);
    if (!fault.IsEmpty())
    {
        AddFault(fault + "; --force sets it and leaves all texts as they are");
    }
    return fault.IsEmpty();
}

void CObjectEdit::UpdateFileMeta()
{
    for (const auto& [meta, tag] : {std::pair(Tag::kMediaStorageSopClassUid, Tag::kSopClassUid),
                                    std::pair(Tag::kMediaStorageSopInstanceUid, Tag::kSopInstanceUid)})
    {
        const CString uid = TextOf(m_store, tag);
        if (m_assigned.contains(tag) && m_store.Find(meta) != nullptr && !uid.IsEmpty() &&
            !(TextOf(m_store, meta) == uid))
        {
            SetText(m_store, meta, uid.View(), '\0');
            m_details.push_back(KeywordOf(meta) + ": set, too");
            m_changed += HasEdits() ? 0 : 1;
        }
    }
}
