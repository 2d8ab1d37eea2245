/// The items of a sequence: how many there are, and how each gives its length.
#pragma once

#include "Varnotix/platform/Export.h"

#include <memory>
#include <vector>

/// Counts the items of a sequence, empty ones included, and keeps for each whether its length is undefined (PS3.5
/// section 7.5). Items are numbered from 1. Items of one form cost no memory each.
class VARNOTIX_EXPORT CItemForms
{
public:
    CItemForms() = default;
    CItemForms(const CItemForms& other);
    CItemForms& operator=(const CItemForms& other);
    CItemForms(CItemForms&& other) noexcept = default;
    CItemForms& operator=(CItemForms&& other) noexcept = default;
    ~CItemForms();

    int Count() const { return m_count; }
    /// Appends an item.
    void Add(bool undefinedLength);
    /// Whether an item's length is undefined; false for a number without an item.
    bool IsUndefined(int item) const;
    void Remove(int item);

private:
    int m_count = 0;
    bool m_undefined = false; // Of every item, as long as m_each is not made.
    std::unique_ptr<std::vector<bool>> m_each;
};
