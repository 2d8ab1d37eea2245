#include "deid/Deidentifier.h"

#include "Varnotix/platform/Ascii.h"
#include "deid/DateShift.h"
#include "deid/HiddenItems.h"
#include "deid/PixelRisk.h"
#include "deid/Values.h"
#include "object/Attributes.h"

#include <algorithm>
#include <iterator>

namespace Tag = Varnotix::Tag;
using Varnotix::EProfileAction;
using Varnotix::EWalk;

namespace
{

constexpr DWORD kLengthToEnd = 0x00080001;
constexpr DWORD kTimezoneOffset = 0x00080201;
constexpr DWORD kOverlayData = 0x60003000;
constexpr int kFirstGroup = 0x0008; // Of data sets.
constexpr int kCurveGroups = 0x50;  // The high bytes of repeating groups.
constexpr int kOverlayGroups = 0x60;
constexpr DWORD kEncapsulatedDocument = 0x00420011;

// Attributes that the profile does not list, whose UIDs name classes, syntaxes, schemes and templates, and nothing that
// belongs to a patient. Other UIDs are replaced wherever they are, so that references still match.
constexpr DWORD kPublicUids[] = {0x00000002, 0x00000003, 0x00041432, 0x00041510, 0x00041512, 0x0004151A,
                                 0x00080016, 0x0008001A, 0x0008001B, 0x00080062, 0x0008010C, 0x0008010D,
                                 0x00080117, 0x00080118, 0x0008040E, 0x00081150, 0x0008115A, 0x00083002,
                                 0x00340003, 0x04000010, 0x04000510, 0x3010001F, 0x30100052, 0x30100053};

bool IsPublicUid(DWORD tag)
{
    return std::find(std::begin(kPublicUids), std::end(kPublicUids), tag) != std::end(kPublicUids);
}

Varnotix::EAttributeNeed NeedOf(const CAttributeRules* rules, const Varnotix::CElementPath& path)
{
    const SAttributeRules* found = rules != nullptr ? RulesOfAttribute(*rules, path) : nullptr;
    if (found == nullptr)
    {
        return Varnotix::EAttributeNeed::Unknown;
    }
    switch (found->type)
    {
    case EAttributeType::Type1:
    case EAttributeType::Type1C:
        return Varnotix::EAttributeNeed::Value;
    case EAttributeType::Type2:
    case EAttributeType::Type2C:
        return Varnotix::EAttributeNeed::Present;
    default:
        return Varnotix::EAttributeNeed::Optional;
    }
}

/// True for an offset from UTC such as +0100.
bool IsTimezone(std::string_view text)
{
    constexpr std::size_t kSize = 5;
    text = Varnotix::TrimBlanks(text);
    return text.size() == kSize && (text.front() == '+' || text.front() == '-') &&
           text.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

/// Leaves the first item of a sequence only. Removing the others one by one would take a pass over all elements for
/// each.
void KeepFirstItem(CDcmElement& sequence)
{
    const CDcmElementSet& items = *sequence.Items();
    CDcmElementSet first;
    first.SetKeepsItems(true);
    first.BeginItem(items.HasUndefinedLength(1));
    CObList elements;
    items.GetItem(1, elements);
    for (POSITION place = elements.GetHeadPosition(); place != nullptr;)
    {
        first.Add(new CDcmElement(*static_cast<const CDcmElement*>(elements.GetNext(place))));
    }
    sequence.SetItems(first);
}

/// True for the parts of a code that a program reads. Their long numbers mean what the scheme says.
bool IsCode(const CDcmElement& element)
{
    constexpr DWORD kCodes[] = {0x00080100, 0x00080102, 0x00080103, 0x00080119, 0x00080120};
    return std::find(std::begin(kCodes), std::end(kCodes), element.Tag()) != std::end(kCodes);
}

/// Numbers and texts of an item that the profile does not list; codes of the standard's own kinds stay valid only as
/// they are.
bool BecomesDummy(const CDcmElement& element)
{
    return element.Items() == nullptr && VrOf(element) != VR_CS && VrOf(element) != VR_UI;
}

} // namespace

void CDeidentifier::Apply(CDcmElementSet& store)
{
    const CString sopClass = TextOf(store, Tag::kSopClassUid);
    m_rules = RulesOfClass(sopClass.View());
    m_isDocument = m_profile.keepsDocuments && IsDocumentClass(sopClass);
    ShowHiddenItems(store);
    m_known.Gather(store, m_profile.options);
    Varnotix::WalkElements(store, [this](const SPlace& place) { return Visit(place); });
    // Color palettes, hanging protocols and the like have neither study nor patient.
    const bool hasStudy = store.Find(Tag::kStudyInstanceUid) != nullptr;
    for (const auto& [tag, text] :
         {std::pair(Tag::kPatientName, &m_patient.name), std::pair(Tag::kPatientId, &m_patient.id)})
    {
        if (hasStudy || store.Find(tag) != nullptr)
        {
            SetText(store, tag, text->View(), ' ');
        }
    }
}

EWalk CDeidentifier::Visit(const SPlace& place)
{
    m_characters.Reach(place);
    const DWORD tag = place.element.Tag();
    const std::size_t depth = place.path.Steps().size();
    m_dummyDepth = depth <= m_dummyDepth ? 0 : m_dummyDepth;
    m_cleanDepth = depth <= m_cleanDepth ? 0 : m_cleanDepth;
    if (depth == 1 && place.element.HasGroup(Tag::kMetaGroup))
    {
        return EWalk::Skip;
    }
    if (Tag::IsGroupLength(tag) || tag == kLengthToEnd)
    {
        return EWalk::Remove; // It would be wrong.
    }
    if (Tag::IsPrivate(tag))
    {
        return VisitPrivate(place);
    }
    // Elements of messages, of file meta information and of directories belong to no object; what the table lists of
    // them is treated as such.
    const bool isMisplaced = place.element.Group() < kFirstGroup && Varnotix::ProfileAction(tag, 0) == EAction::None;
    // What cannot be read cannot be searched either.
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    const bool isHidden =
        HidesItems(place.element) || (entry != nullptr && entry->vr == VR_SQ && place.element.Items() == nullptr);
    // An overlay plane is no overlay without its data.
    const bool isOverlay = place.element.Group() >> 8 == kOverlayGroups &&
                           Varnotix::ProfileAction(kOverlayData, m_profile.options) == EAction::Remove;
    if (entry == nullptr || isMisplaced || isHidden || isOverlay)
    {
        return Do(EAction::Remove, place);
    }
    if (tag == Tag::kPatientId)
    {
        const CValueBytes old = place.element.ValueBytes();
        const CString id = m_profile.patients.NewIdOf(old.View().substr(0, old.View().find('\0')));
        return Set(EDeidDone::Replaced, depth == 1 ? m_patient.id.View() : id.View(), place);
    }
    return Do(ActionFor(place, m_profile.options), place);
}

EWalk CDeidentifier::VisitPrivate(const SPlace& place)
{
    if ((m_profile.options & Varnotix::PROFILE_RETAIN_SAFE_PRIVATE) == 0)
    {
        return Do(EAction::Remove, place);
    }
    const CDcmElement& element = place.element;
    const bool isCreator = CSafePrivate::IsCreator(element.Tag());
    const int block = isCreator ? element.Element() : element.Element() >> 8;
    std::string& creator = m_creators[{&place.set, place.item, element.Group(), block}];
    if (isCreator)
    {
        creator = Varnotix::TrimBlanks(element.ValueBytes().View());
    }
    if (!m_profile.safePrivate.Holds(element.Tag(), creator) || HidesItems(element))
    {
        return Do(EAction::Remove, place);
    }
    // References have to match, and dates to move, in private attributes, too.
    const EAction unlisted = VrOf(element) == VR_PN ? EAction::None : UnlistedAction(element, m_profile.options);
    return Do(unlisted == EAction::None ? EAction::Keep : unlisted, place);
}

/// What is done with an attribute that neither the table nor an option names.
EProfileAction CDeidentifier::UnlistedAction(const CDcmElement& element, unsigned options) const
{
    switch (VrOf(element))
    {
    case VR_UI:
        return (options & Varnotix::PROFILE_RETAIN_UIDS) != 0 || IsPublicUid(element.Tag()) ? EAction::None
                                                                                            : EAction::NewUid;
    case VR_PN:
        return EAction::RemoveEmptyOrDummy;
    case VR_DA:
    case VR_DT:
        return (options & Varnotix::PROFILE_RETAIN_MODIFIED_DATES) != 0 ? EAction::Clean : EAction::None;
    default:
        return EAction::None;
    }
}

EProfileAction CDeidentifier::ActionFor(const SPlace& place, unsigned options) const
{
    const DWORD tag = place.element.Tag();
    const EAction listed = Varnotix::ProfileAction(tag, options);
    if (tag == kEncapsulatedDocument && m_isDocument && place.path.Steps().size() == 1)
    {
        return EAction::Keep;
    }
    return Varnotix::ActionForType(listed == EAction::None ? UnlistedAction(place.element, options) : listed,
                                   NeedOf(m_rules, place.path));
}

EWalk CDeidentifier::Do(EAction action, const SPlace& place)
{
    switch (action)
    {
    case EAction::Remove:
        m_record.Add(EDeidDone::Removed, place.path);
        return EWalk::Remove;
    case EAction::Empty:
        return Set(EDeidDone::Emptied, "", place);
    case EAction::Dummy:
        return MakeDummy(place);
    case EAction::NewUid:
        if (place.element.Items() == nullptr && m_profile.uids.Replace(place.element))
        {
            m_record.Add(EDeidDone::NewUid, place.path);
        }
        return EWalk::Enter;
    case EAction::Clean:
        return Clean(place);
    case EAction::Keep:
        m_record.Add(EDeidDone::KeptByOption, place.path);
        return EWalk::Enter;
    default:
        return Leave(place);
    }
}

EWalk CDeidentifier::Set(EDeidDone done, std::string_view text, const SPlace& place)
{
    SetValue(place.element, text);
    m_record.Add(done, place.path);
    return EWalk::Skip;
}

EWalk CDeidentifier::MakeDummy(const SPlace& place)
{
    CDcmElement& element = place.element;
    if (const CDcmElementSet* items = element.Items())
    {
        // One item says what the sequence is; its values become dummies.
        if (items->ItemCount() > 1)
        {
            KeepFirstItem(element);
        }
        m_dummyDepth = m_dummyDepth == 0 ? place.path.Steps().size() : m_dummyDepth;
        m_record.Add(EDeidDone::Replaced, place.path);
        return EWalk::Enter;
    }
    if (VrOf(element) == VR_UI && m_profile.uids.Replace(element))
    {
        m_record.Add(EDeidDone::NewUid, place.path);
        return EWalk::Skip;
    }
    return Set(EDeidDone::Replaced, DummyText(element), place);
}

EWalk CDeidentifier::Clean(const SPlace& place)
{
    CDcmElement& element = place.element;
    const int vr = VrOf(element);
    if (element.Items() != nullptr)
    {
        m_cleanDepth = m_cleanDepth == 0 ? place.path.Steps().size() : m_cleanDepth;
        m_record.Add(EDeidDone::Cleaned, place.path);
        return EWalk::Enter;
    }
    if (vr == VR_DA || vr == VR_DT || vr == VR_TM)
    {
        if (const auto moved = ShiftDates(element.ValueBytes().View(), vr, m_patient.days))
        {
            return Set(EDeidDone::Shifted, *moved, place);
        }
        const unsigned others = m_profile.options & ~Varnotix::PROFILE_RETAIN_MODIFIED_DATES;
        const bool isListed = Varnotix::ProfileAction(element.Tag(), others) != EAction::None;
        return Do(isListed && !Tag::IsPrivate(element.Tag())
                      ? ActionFor(place, others)
                      : Varnotix::ActionForType(EAction::RemoveEmptyOrDummy, NeedOf(m_rules, place.path)),
                  place);
    }
    if (element.Tag() == kTimezoneOffset && IsTimezone(element.ValueBytes().View()))
    {
        return Do(EAction::Keep, place); // Times of day stay, too, and there is nothing in it to read.
    }
    const int highByte = element.Group() >> 8;
    const bool isGraphic = !HoldsWords(element) && (highByte == kCurveGroups || highByte == kOverlayGroups);
    if (isGraphic || (vr == VR_CS && !m_known.AreIn(element, m_characters)))
    {
        m_record.Add(EDeidDone::Cleaned, place.path);
        return EWalk::Skip;
    }
    return HoldsWords(element) ? Set(EDeidDone::Cleaned, m_known.Cleaned(element, m_characters), place)
                               : Do(ActionFor(place, 0), place);
}

/// An attribute that the profile does not list.
EWalk CDeidentifier::Leave(const SPlace& place)
{
    if (m_dummyDepth != 0 && BecomesDummy(place.element))
    {
        return Set(EDeidDone::Replaced, DummyText(place.element), place);
    }
    const CDcmElement& element = place.element;
    // Labels of overlays belong to what is cleaned with them.
    const bool isCleaned = m_cleanDepth != 0 || element.Group() >> 8 == kOverlayGroups;
    if (isCleaned && HoldsWords(element) && (!IsCode(element) || m_known.AreIn(element, m_characters)))
    {
        return Clean(place);
    }
    if (place.element.Items() == nullptr)
    {
        m_record.Add(EDeidDone::Kept, place.path);
    }
    return EWalk::Enter;
}
