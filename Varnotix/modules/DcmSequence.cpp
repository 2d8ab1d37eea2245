#include "Varnotix/modules/DcmSequence.h"

IMPLEMENT_DYNAMIC(CSequencePrivate, CObject)
IMPLEMENT_DYNCREATE(CDcmSequence, CDcmAttributeSet)

CDcmSequence::CDcmSequence() = default;

CDcmSequence::CDcmSequence(const CDcmSequence& other) : CDcmAttributeSet(other) {}

CDcmSequence::~CDcmSequence() = default;

CDcmSequence& CDcmSequence::operator=(const CDcmSequence& other)
{
    CDcmAttributeSet::operator=(other);
    return *this;
}

CDcmSequence& CDcmSequence::operator<<(const CDcmSequence& other)
{
    CDcmAttributeSet::operator<<(other);
    return *this;
}

CDcmSequence& CDcmSequence::operator>>(CDcmSequence& other)
{
    CDcmAttributeSet::operator>>(other);
    return *this;
}

void CDcmSequence::EmptySequence()
{
    EmptyAll();
}

void CDcmSequence::TakeItem(const CDcmElementSet& items, int item)
{
    if (!GetDcmElementSet().SharesBodyWith(items))
    {
        EmptyAll();
        GetDcmElementSet().UpdateValuesFromItem(items, item);
    }
}

void CDcmSequence::InitializeSequence() {}

void CDcmSequence::CopySequence(CDcmSequence& other)
{
    *this << other;
}

void CDcmSequence::DestroySequence()
{
    DestroySet();
}
