#include "Varnotix/modules/RowWalker.h"

#include "Varnotix/modules/DcmAttributeSet.h"

CClassShapes::CClassShapes() = default;

CClassShapes::~CClassShapes() = default;

const CElementShape& CClassShapes::Add(const std::vector<SAttributeRow>& rows)
{
    CElementShape& shape = m_shapes.emplace_back();
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
    return shape;
}
