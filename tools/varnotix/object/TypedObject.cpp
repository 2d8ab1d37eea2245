#include "object/TypedObject.h"

#include "object/Attributes.h"
#include "object/ObjectKinds.h"

std::unique_ptr<CDcmIOD> MakeTypedObject(const CDcmIOD& object)
{
    CObject* made = ClassOfSopClass(TextOf(object.ElementStore(), Varnotix::Tag::kSopClassUid))->CreateObject();
    std::unique_ptr<CDcmIOD> typed(static_cast<CDcmIOD*>(made));
    *typed = object;
    return typed;
}
