/// Differences between a written object and its input.
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
    VrNotStated,
    GroupLengthRemoved,
    GroupLengthRemade,
    OffsetTableChanged,
    FramesNotFramed,
    ItemLengthsSwapped,
    InputMended,
    Count
};

/// Collects losses and prints them: one line each with --verbose, otherwise one summary line.
class CLossReport
{
public:
    /// @param where the path of tags, or another name of the place.
    void Add(ELoss kind, const CString& where, const CString& what);

    /// Adds the notes that the read of the input left.
    void AddReadNotes(const CDcmIOD& object);

    bool IsEmpty() const { return m_losses.empty(); }
    int CountOf(ELoss kind) const;

    /// Prints nothing when nothing was lost.
    void Print(const CString& input, const CReport& report) const;

private:
    struct SLoss
    {
        ELoss kind;
        CString text;
    };

    void AddMended(const SReadNote& note, const CString& where);
    CString Summary() const;

    std::vector<SLoss> m_losses;
};
