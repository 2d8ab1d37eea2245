/// From stored values to gray: rescale and window (PS3.3 C.11.1 and C.11.2).
#pragma once

#include "console/Report.h"

/// The first window of an object, or, when it has none, the range of the values that a frame holds.
class CGrayScale
{
public:
    /// Reads the attributes; reports those that are not applied.
    /// @return empty, or why values cannot be turned into gray.
    CString Read(const CDcmElementSet& store, const CString& name, const CReport& report);

    /// True when SetRange must be called with the range of the stored values.
    bool NeedsRange() const { return !m_hasWindow; }
    void SetRange(double lowest, double highest);

    /// The gray of a stored value: 0 black, 255 white.
    BYTE Gray(double stored) const;

private:
    enum class EFunction
    {
        Linear,
        LinearExact,
        Sigmoid
    };

    CString ReadRescale(const CDcmElementSet& store);
    CString ReadWindow(const CDcmElementSet& store);

    double m_slope = 1;
    double m_intercept = 0;
    bool m_hasWindow = false;
    EFunction m_function = EFunction::Linear;
    double m_center = 0;
    double m_width = 1;
};
