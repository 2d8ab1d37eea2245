#include "Varnotix/element/DmElement.h"

CDmElement::CDmElement(bool raw) : m_raw(raw) {}

CDmElement::~CDmElement() = default;

CDmElement& CDmElement::operator=(const CDmElement& other)
{
    if (this != &other)
    {
        m_group = other.m_group;
        m_element = other.m_element;
        m_vr = other.m_vr;
        m_value = other.m_value;
        m_vm = other.m_vm;
        m_name = other.m_name;
        m_vrText = other.m_vrText;
    }
    return *this;
}
