/// The handle to a shared, counted body of owned objects: the base of element sets and frame lists.
#pragma once

#include "Varnotix/element/ObjectList.h"
#include "Varnotix/platform/RefCount.h"

#include <memory>
#include <utility>

/// The body of one or more CDcmList handles. It owns the objects of its list.
class VARNOTIX_EXPORT CDcmListBody : public CObject
{
    DECLARE_DYNAMIC(CDcmListBody)

public:
    CDcmListBody() = default;
    CDcmListBody(const CDcmListBody&) = delete;
    CDcmListBody& operator=(const CDcmListBody&) = delete;
    ~CDcmListBody() override;

    /// The object at an index, or null.
    CObject* At(int index) const { return index >= 0 && index < list.GetCount() ? list[index] : nullptr; }

    /// Appends an object and takes it over, also when memory runs out.
    void Append(std::unique_ptr<CObject> object);

    /// Destroys all objects; handles of the body then see an empty list.
    void DestroyObjects();

    /// Adds the objects that were left out of the list until its first access. Those for which memory runs out stay
    /// out.
    virtual void Fill();

private:
    friend class CDcmElementSet;
    friend class CDcmFrameList;
    friend class CDcmList;
    friend class CElementBody;

    CObjectList list;
    CRefCount references;
    bool unfilled = false;
};

/// A handle to a list body. Several handles may share one body; the last one that releases it destroys the objects.
class VARNOTIX_EXPORT CDcmList : public CObject
{
    DECLARE_DYNAMIC(CDcmList)

public:
    /// Derived classes define copying.
    CDcmList(const CDcmList&) = delete;
    CDcmList& operator=(const CDcmList&) = delete;
    ~CDcmList() override;

    /// Number of objects in the list.
    int GetCount() const { return Body().list.GetCount(); }

    /// True when both handles share one body.
    bool SharesBodyWith(const CDcmList& other) const { return m_body == other.m_body; }

protected:
    /// Takes over a fresh body.
    explicit CDcmList(CDcmListBody* body) : m_body(body) {}

    CDcmListBody& Body() const
    {
        if (m_body->unfilled)
        {
            m_body->Fill();
        }
        return *m_body;
    }
    /// The body for those who do not look at its list.
    CDcmListBody& BodyAsIs() const { return *m_body; }

    /// Releases the body and takes over another one, which is already counted for this handle.
    void TakeBody(CDcmListBody* body);

    /// Gives up the body, which the caller takes over; the handle can only be destroyed then.
    CDcmListBody* LeaveBody() noexcept { return std::exchange(m_body, nullptr); }

    /// Releases the body and shares the other handle's.
    void ShareBody(const CDcmList& other);

private:
    CDcmListBody* m_body;
};
