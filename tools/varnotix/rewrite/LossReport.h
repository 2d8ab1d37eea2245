/// What a written object no longer holds as its input did.
#pragma once

#include "console/Report.h"

#include <vector>

/// Kinds of loss, in the order in which a summary names them.
enum class ELoss
{
    ItemsRegrouped,
    ElementsSwallowed,
    ItemsDropped,
    BytesLeft,
    UnValueLost,
    EmptyValuesDropped,
    ValueChanged,
    ElementLost,
    VrChanged,
    PrivateVrNotStated,
    GroupLengthRemoved,
    GroupLengthRemade,
    OffsetTableChanged,
    FramesNotFramed,
    ItemLengthsSwapped,
    Count
};

/// Gathers losses and tells them: a line each to those who asked for details, one summary line to the others.
class CLossReport
{
public:
    /// @param where the path of tags, or what else names the place.
    void Add(ELoss kind, const CString& where, const CString& what);

    /// Adds what the read of the input noted.
    void AddReadNotes(const CDcmIOD& object);

    bool IsEmpty() const { return m_losses.empty(); }
    int CountOf(ELoss kind) const;

    /// Nothing is told when nothing was lost.
    void Tell(const CString& input, const CReport& report) const;

private:
    struct SLoss
    {
        ELoss kind;
        CString text;
    };

    CString Summary() const;

    std::vector<SLoss> m_losses;
};
