/// From stored values to gray: modality and VOI transformations (PS3.3 C.11.1 and C.11.2).
#pragma once

#include "picture/FrameAttributes.h"
#include "picture/LookupTable.h"

#include <optional>

/// Which of its VOI transformations a picture is drawn through.
struct SWindowChoice
{
    enum class EKind
    {
        Object, ///< The object's first window, else its first VOI LUT, else the range of the values.
        Range,  ///< The range of the values in the frame.
        Table,  ///< The object's first VOI LUT.
        Given   ///< A window of the user's.
    };

    EKind kind = EKind::Object;
    double center = 0;
    double width = 1;
};

/// The transformations of one frame.
class CGrayScale
{
public:
    /// Reads the attributes.
    /// @param isSigned the stored values are signed.
    /// @param note receives what is not applied; mostly empty.
    /// @return empty, or why values cannot be turned into gray.
    CString Read(const CFrameAttributes& attributes, const SWindowChoice& choice, bool isSigned, CString& note);

    /// True when SetRange must be called with the range of the modality values.
    bool NeedsRange() const { return m_function == EFunction::Range; }
    void SetRange(double lowest, double highest);

    /// The value that a modality LUT, or slope and intercept, give a stored value.
    double ModalityValue(std::int64_t stored) const;

    /// The gray of a modality value: 0 black, 1 white.
    double Gray(double value) const;

private:
    enum class EFunction
    {
        Range, // Not known yet.
        Linear,
        LinearExact,
        Sigmoid,
        Table
    };

    CString ReadModality(const CFrameAttributes& attributes, bool isSigned);
    CString ReadFunction(const CFrameAttributes& attributes);
    CString ReadWindow(const CFrameAttributes& attributes);
    CString ReadTable(const CFrameAttributes& attributes, bool isSigned);

    double m_slope = 1;
    double m_intercept = 0;
    std::optional<CLookupTable> m_modalityTable;
    EFunction m_function = EFunction::Range;
    double m_center = 0;
    double m_width = 1;
    CLookupTable m_table;
};
