/// Attributes of single frames.
#pragma once

#include "Varnotix/Varnotix.h"

#include <map>

/// The functional groups of an object (PS3.3 C.7.6.16). Finding one takes the same time however many frames there are.
class CFunctionalGroups
{
public:
    /// @param store must outlive this object.
    explicit CFunctionalGroups(const CDcmElementSet& store);

    bool IsEmpty() const { return m_macros.empty(); }

    /// An attribute of a frame's own groups, else of the shared ones.
    /// @param frame counted from 0.
    /// @param macro the sequence that holds the attribute.
    /// @return null when they do not have it.
    const CDcmElement* Find(int frame, DWORD macro, DWORD tag) const;

private:
    /// The sequence of a macro by the item that it is in: 0 for the shared groups, else the number of the frame from 1.
    using CMacros = std::map<std::pair<int, DWORD>, const CDcmElement*>;

    const CDcmElement* FindInMacro(int item, DWORD macro, DWORD tag) const;

    CMacros m_macros;
};

/// The attributes that count for a frame: those of its functional groups, else those of the object itself.
class CFrameAttributes
{
public:
    /// Both must outlive this object.
    /// @param frame counted from 0.
    CFrameAttributes(const CDcmElementSet& store, const CFunctionalGroups& groups, int frame)
        : m_store(store), m_groups(groups), m_frame(frame)
    {
    }

    /// @param macro the sequence that holds the attribute in a functional group.
    /// @return null when the frame has no such attribute.
    const CDcmElement* Find(DWORD macro, DWORD tag) const;

    /// The first of the attribute's texts; empty when there is none.
    CString FirstText(DWORD macro, DWORD tag) const;

    const CDcmElementSet& Store() const { return m_store; }

private:
    const CDcmElementSet& m_store;
    const CFunctionalGroups& m_groups;
    int m_frame;
};
