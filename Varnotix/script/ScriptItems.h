/// The items of a sequence as a script gives them.
#pragma once

#include "Varnotix/modules/DcmAttributeModule.h"

#include <memory>
#include <vector>

/// Gathers items while their lines are read, each in a module of its own: a tag of another item is not a repetition.
class CScriptItems
{
public:
    CScriptItems();

    /// The module of the item that is being read. It stays valid when others begin.
    CDcmAttributeModule& Current() { return *m_modules.back(); }

    /// Begins an item.
    /// @return false, and nothing changed, when the number is not that of the next item.
    bool Begin(int item);

    /// Moves all elements into an empty set.
    /// @param keepsItems whether the set gets the items; otherwise only the elements.
    void MoveInto(CDcmElementSet& set, bool keepsItems);

private:
    bool IsMarkedOrFilled() const { return m_isMarked || m_modules.front()->GetCount() > 0; }

    std::vector<std::unique_ptr<CDcmAttributeModule>> m_modules;
    bool m_isMarked = false;
};
