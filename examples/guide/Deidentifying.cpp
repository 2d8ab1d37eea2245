#include "Guide.h"

namespace
{

/// Takes the place of a keyed hash, such as the first 16 bytes of HMAC-SHA256. With this one, old UIDs can be found by
/// trying.
Varnotix::CUuid HashOf(std::string_view uid)
{
    Varnotix::CUuid hash{};
    unsigned state = 2166136261U;
    for (std::size_t i = 0; i < uid.size() + hash.size(); ++i)
    {
        state = (state ^ static_cast<BYTE>(i < uid.size() ? uid[i] : '\0')) * 16777619U;
        hash[i % hash.size()] = static_cast<BYTE>(state >> 24U);
    }
    return hash;
}

void Deidentify(CDcmElementSet& store, unsigned options)
{
    using Varnotix::EProfileAction;
    using Varnotix::EWalk;
    const Varnotix::CUidMap uids(HashOf);
    Varnotix::WalkElements(store,
                           [&](const Varnotix::SWalkPlace& place)
                           {
                               const EProfileAction listed = Varnotix::ProfileAction(place.element.Tag(), options);
                               const EProfileAction action =
                                   Varnotix::ActionForType(listed, Varnotix::EAttributeNeed::Unknown);
                               if (listed != EProfileAction::None)
                               {
                                   std::cout << place.path.Text().CText() << ": " << Varnotix::ProfileActionText(listed)
                                             << '\n';
                               }
                               switch (action)
                               {
                               case EProfileAction::None:
                               case EProfileAction::Keep:
                                   return EWalk::Enter;
                               case EProfileAction::NewUid:
                                   uids.Replace(place.element);
                                   return EWalk::Enter;
                               default: // A host that makes dummy values has more cases here.
                                   return EWalk::Remove;
                               }
                           });
}

} // namespace

void Deidentifying()
{
    if (Varnotix::ProfileSize() == 0)
    {
        std::cerr << "deidentification.txt was not found or is damaged\n";
        return;
    }
    CDcmIOD object;
    object.StreamRules(STREAM_RULES_STANDARD); // Items stay as they are.
    ReadFile("guide.dcm", object);
    CDcmElementSet& store = object.ElementStore();
    const CString old = store.Find(Varnotix::Tag::kSopInstanceUid)->JoinedText();
    Deidentify(store, Varnotix::PROFILE_CLEAN_DESCRIPTORS | Varnotix::PROFILE_RETAIN_DEVICE);

    const CString instance = store.Find(Varnotix::Tag::kSopInstanceUid)->JoinedText();
    std::cout << (instance == store.Find(Varnotix::Tag::kMediaStorageSopInstanceUid)->JoinedText() ? "one" : "two")
              << (instance == old ? " old UID\n" : " new UID\n");
}
