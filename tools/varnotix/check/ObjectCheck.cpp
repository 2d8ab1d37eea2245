#include "check/ObjectCheck.h"

#include "object/Attributes.h"
#include "object/ElementMaker.h"
#include "text/WalkCharacters.h"

namespace Tag = Varnotix::Tag;
using Varnotix::CElementPath;
using Varnotix::EWalk;
using Varnotix::SWalkPlace;

namespace
{

constexpr int kFirstBlock = 0x10;

void CheckTag(const SWalkPlace& place, CFindings& findings)
{
    const DWORD tag = place.element.Tag();
    if (!Tag::IsPrivate(tag))
    {
        if (CDcmRegistry::Global().LookUpPublicTag(tag) == nullptr && !Tag::IsGroupLength(tag))
        {
            findings.Warning(ShownPath(place.path), "the data dictionary does not have this tag");
        }
        return;
    }
    const int number = Tag::Element(tag);
    if (number > 0 && number < kFirstBlock)
    {
        findings.Error(ShownPath(place.path), "private element numbers begin at 0010 (PS3.5 section 7.8.1)");
    }
    else if (number > 0xFF && Varnotix::PrivateCreatorOf(place.set, place.item, tag).IsEmpty())
    {
        CString creator;
        creator.Format("(%04X,00%02X)", static_cast<unsigned>(Tag::Group(tag)), static_cast<unsigned>(number / 0x100));
        findings.Error(ShownPath(place.path), "its private block has no creator " + creator);
    }
}

void CheckVr(const SWalkPlace& place, CFindings& findings)
{
    const CDcmElement& element = place.element;
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(element.Tag());
    const std::string_view letters = element.VrLetters();
    if (entry == nullptr || Tag::IsPrivate(element.Tag()) || letters == "UN")
    {
        return;
    }
    const CString listed = ListedVr(element.Tag(), false);
    const bool isChoice = entry->choice != Varnotix::EVrChoice::None;
    if (!isChoice && letters != listed.View())
    {
        // The VRs of some attributes changed between editions of the standard.
        findings.Warning(ShownPath(place.path), "VR " + CString(letters) + " where the dictionary has " + listed);
    }
}

/// @param characters of the data set that the element is in.
void CheckCharacterSet(const SWalkPlace& place, const CCharacterSet& characters, CFindings& findings)
{
    constexpr DWORD kSpecificCharacterSet = 0x00080005;
    if (place.element.Tag() == kSpecificCharacterSet && !characters.UnknownTerm().empty())
    {
        findings.Error(ShownPath(place.path),
                       "there is no character set " + CString(std::string_view(characters.UnknownTerm())));
    }
}

/// A UID names one thing (PS3.5 section 9), so an object's own UIDs differ.
void CheckOwnUids(const CDcmElementSet& set, CFindings& findings)
{
    constexpr DWORD kOwn[] = {Tag::kSopInstanceUid, Tag::kStudyInstanceUid, Tag::kSeriesInstanceUid,
                              Tag::kFrameOfReferenceUid};
    for (std::size_t i = 1; i < std::size(kOwn); ++i)
    {
        for (std::size_t k = 0; k < i; ++k)
        {
            const CString uid = TextOf(set, kOwn[i]);
            if (!uid.IsEmpty() && uid == TextOf(set, kOwn[k]))
            {
                findings.Error(ShownTag(kOwn[i]), "the same UID as " + ShownTag(kOwn[k]));
            }
        }
    }
}

} // namespace

void CheckElements(CDcmElementSet& set, CFindings& findings)
{
    CWalkCharacters walked;
    Varnotix::WalkElements(set,
                           [&](const SWalkPlace& place)
                           {
                               walked.Reach(place);
                               const CCharacterSet& characters = walked.Here();
                               CheckTag(place, findings);
                               CheckVr(place, findings);
                               CheckCharacterSet(place, characters, findings);
                               if (place.element.Items() == nullptr && !place.element.IsPixelData())
                               {
                                   for (const SValueFault& fault : CheckValue(place.element, characters))
                                   {
                                       findings.Add(fault.severity, ShownPath(place.path), fault.what);
                                   }
                               }
                               return EWalk::Enter;
                           });
    CheckOwnUids(set, findings);
}

void CheckObject(CDcmIOD& object, CFindings& findings)
{
    CheckStream(object, findings);
    CheckFileMeta(object, findings);
    CheckElements(object.ElementStore(), findings);
    if (!object.ReadStopped())
    {
        CheckPixels(object, findings);
        CheckModules(object.ElementStore(), findings);
    }
}
