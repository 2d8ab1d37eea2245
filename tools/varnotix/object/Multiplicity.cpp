#include "object/Multiplicity.h"

#include <algorithm>
#include <iterator>

namespace
{

struct SRow
{
    DWORD tag;
    SMultiplicity multiplicity;
};

constexpr int kAny = SMultiplicity::kNoBound;

// The dictionary file has the greatest number only. These are the attributes of PS3.6 for which the least number is
// neither that one nor, without a bound, 1; and lists of long texts, which the file counts as one value. In tag order.
constexpr SRow kRows[] = {
    {0x00041141, {1, 8, 1}},    {0x00041500, {1, 8, 1}},    {0x00080008, {2, kAny, 1}}, {0x00080309, {1, 3, 1}},
    {0x0008030B, {1, 2, 1}},    {0x00081162, {3, kAny, 3}}, {0x00089007, {4, 5, 1}},    {0x00160008, {1, kAny, 1}},
    {0x0016000C, {1, kAny, 1}}, {0x0016002A, {2, 4, 1}},    {0x00160036, {1, 2, 1}},    {0x00181149, {1, 2, 1}},
    {0x00181182, {1, 2, 1}},    {0x00181183, {1, 2, 1}},    {0x00181184, {1, 2, 1}},    {0x00181600, {1, 3, 1}},
    {0x00181620, {2, kAny, 2}}, {0x00181700, {1, 3, 1}},    {0x00181720, {2, kAny, 2}}, {0x00187026, {1, 2, 1}},
    {0x00189052, {1, 2, 1}},    {0x00189053, {1, 2, 1}},    {0x00189060, {1, 2, 1}},    {0x00189061, {1, 2, 1}},
    {0x00189063, {1, 2, 1}},    {0x00189065, {1, 2, 1}},    {0x00189066, {1, 2, 1}},    {0x00189098, {1, 2, 1}},
    {0x00189100, {1, 2, 1}},    {0x00189428, {1, 2, 1}},    {0x00189442, {2, kAny, 1}}, {0x00189461, {1, 2, 1}},
    {0x00189908, {1, kAny, 1}}, {0x0018990A, {1, kAny, 1}}, {0x00220032, {2, kAny, 2}}, {0x00281200, {1, kAny, 1}},
    {0x00283006, {1, kAny, 1}}, {0x00286102, {2, kAny, 2}}, {0x00289503, {2, kAny, 2}}, {0x00289506, {2, kAny, 2}},
    {0x00289507, {2, kAny, 2}}, {0x00400303, {1, 2, 1}},    {0x0040A0B0, {2, kAny, 2}}, {0x0040A29A, {2, kAny, 2}},
    {0x00460208, {2, kAny, 2}}, {0x00700022, {2, kAny, 1}}, {0x0072006F, {1, kAny, 1}}, {0x00720082, {1, kAny, 1}},
    {0x00720083, {1, kAny, 1}}, {0x00720212, {2, kAny, 1}}, {0x00720432, {2, kAny, 1}}, {0x00800007, {3, kAny, 3}},
    {0x00880912, {1, 32, 1}},   {0x20400011, {1, 99, 1}},   {0x3004000C, {2, kAny, 1}}, {0x30040014, {1, 3, 1}},
    {0x30040058, {2, kAny, 2}}, {0x30060050, {3, kAny, 3}}, {0x300800A4, {2, kAny, 2}}, {0x300A00BE, {3, kAny, 1}},
    {0x300A0106, {2, kAny, 2}}, {0x300A011C, {2, kAny, 2}}, {0x300A0399, {2, kAny, 2}}, {0x300A0649, {2, kAny, 1}},
    {0x300A064A, {2, kAny, 1}}, {0x4010101D, {6, kAny, 1}},
};

} // namespace

bool SMultiplicity::Allows(std::size_t count) const
{
    const auto number = static_cast<long long>(count);
    return number >= least && (most == kNoBound || number <= most) && (number - least) % step == 0;
}

CString SMultiplicity::Text() const
{
    CString text;
    if (most == least)
    {
        text.Format("%d", least);
    }
    else if (most != kNoBound)
    {
        text.Format("%d-%d", least, most);
    }
    else if (step != 1)
    {
        text.Format("%d-%dn", least, step);
    }
    else
    {
        text.Format("%d-n", least);
    }
    return text;
}

SMultiplicity MultiplicityOf(DWORD tag)
{
    const auto row =
        std::lower_bound(std::begin(kRows), std::end(kRows), tag, [](const SRow& a, DWORD b) { return a.tag < b; });
    if (row != std::end(kRows) && row->tag == tag)
    {
        return row->multiplicity;
    }
    const CDcmEntry* entry = CDcmRegistry::Global().LookUpPublicTag(tag);
    return entry == nullptr || entry->multiplicity < 1 ? SMultiplicity()
                                                       : SMultiplicity{entry->multiplicity, entry->multiplicity, 1};
}
