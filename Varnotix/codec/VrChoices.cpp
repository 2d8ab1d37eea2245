#include "Varnotix/codec/VrChoices.h"

int CVrChoices::AddDataSet(int around)
{
    m_dataSets.push_back({around, -1});
    return static_cast<int>(m_dataSets.size()) - 1;
}

void CVrChoices::SetPixelRepresentation(int dataSet, int value)
{
    m_dataSets[static_cast<std::size_t>(dataSet)].pixelRepresentation = value;
}

void CVrChoices::Add(CDcmElement& element, int dataSet)
{
    m_choices.push_back({&element, dataSet});
}

void CVrChoices::Resolve() const
{
    for (const SChoice& choice : m_choices)
    {
        int value = -1;
        for (int place = choice.dataSet; place >= 0 && value < 0;)
        {
            const SDataSet& dataSet = m_dataSets[static_cast<std::size_t>(place)];
            value = dataSet.pixelRepresentation;
            place = dataSet.around;
        }
        choice.element->SetSigned(value == 1);
    }
}
