#include "Varnotix/modules/RowWalker.h"

#include "Varnotix/modules/DcmAttributeSet.h"

#include <algorithm>

CClassShapes::CClassShapes() = default;

CClassShapes::~CClassShapes() = default;

const CElementShape* CClassShapes::Find()
{
    const std::scoped_lock lock(m_lock);
    return FindLocked();
}

const CElementShape* CClassShapes::FindLocked()
{
    const auto found =
        std::find_if(m_shapes.begin(), m_shapes.end(), [](const CElementShape& shape) { return shape.IsCurrent(); });
    if (found == m_shapes.end())
    {
        return nullptr;
    }
    m_latest.store(&*found, std::memory_order_release);
    return &*found;
}

const CElementShape& CClassShapes::Add(const std::vector<SAttributeRow>& rows)
{
    const std::scoped_lock lock(m_lock);
    if (const CElementShape* current = FindLocked())
    {
        return *current;
    }
    std::list<CElementShape> made(1);
    CElementShape& shape = made.front();
    for (const SAttributeRow& row : rows)
    {
        if (row.kind == ERow::Attribute)
        {
            shape.Declare(row.group, row.element);
        }
        else if (row.kind == ERow::Sequence)
        {
            shape.AddSequence(row.group, row.element);
        }
        else
        {
            const CDcmElementSet& macro = row.member->GetDcmElementSet();
            for (int i = 0; i < macro.DeclaredCount(); ++i)
            {
                shape.Declare(macro.DeclaredTag(i));
            }
        }
    }
    m_shapes.splice(m_shapes.end(), made);
    m_latest.store(&shape, std::memory_order_release);
    return shape;
}

CVariantShapes::CVariantShapes() = default;

CVariantShapes::~CVariantShapes() = default;

CClassShapes& CVariantShapes::Of(const std::string& variant)
{
    const std::scoped_lock lock(m_lock);
    return m_shapes[variant];
}
