#include "object/TypedObject.h"

#include "object/Attributes.h"
#include "object/ObjectKinds.h"

namespace
{

constexpr DWORD kSopClass = 0x00080016;

} // namespace

std::unique_ptr<CDcmIOD> MakeTypedObject(const CDcmIOD& object)
{
    CObject* made = ClassOfSopClass(TextOf(object.ElementStore(), kSopClass))->CreateObject();
    std::unique_ptr<CDcmIOD> typed(static_cast<CDcmIOD*>(made));
    *typed = object;
    return typed;
}
