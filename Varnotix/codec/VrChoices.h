/// VRs that depend on the data set around an element.
#pragma once

#include "Varnotix/element/DcmElement.h"

#include <vector>

/// Elements of VR "US or SS" that were read without a VR. Which of the two they have depends on Pixel Representation
/// (0028,0103), which may come after them, or be in the data set around their item.
class CVrChoices
{
public:
    /// Adds a data set.
    /// @param around number of the data set around it; -1 for none.
    /// @return its number.
    int AddDataSet(int around);
    void SetPixelRepresentation(int dataSet, int value);
    /// Adds an element of a data set, which must live until Resolve.
    void Add(CDcmElement& element, int dataSet);
    /// Gives each element its VR: SS where the pixels are signed.
    void Resolve() const;

private:
    struct SDataSet
    {
        int around;
        int pixelRepresentation;
    };
    struct SChoice
    {
        CDcmElement* element;
        int dataSet;
    };

    std::vector<SDataSet> m_dataSets;
    std::vector<SChoice> m_choices;
};
