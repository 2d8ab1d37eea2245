// What a set declares: the tags of a class, or those that it was given one by one, and its bound sequences.

#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/registry/TagText.h"

#include <memory>

using namespace Varnotix;

void CDcmElementSet::TakeShape(const CElementShape& shape)
{
    DestroyContents();
    m_classShape = &shape;
    ElementsAsIs().TakeShape(shape);
}

void CDcmElementSet::Declare(const CString& group, const CString& element)
{
    Declare(TagOfTexts(group, element));
}

void CDcmElementSet::Declare(DWORD tag)
{
    if (Elements().Find(tag) != nullptr)
    {
        return;
    }
    if (m_classShape != nullptr)
    {
        for (const DWORD declared : m_classShape->Declared())
        {
            m_declared.Add(declared);
        }
        m_classShape = nullptr;
    }
    m_declared.Add(tag);
    Elements().OwnShape().Declare(tag);
    Add(new CDcmElement(tag));
}

void CDcmElementSet::DeclareTagsOf(const CDcmElementSet& other)
{
    for (int i = 0; i < other.DeclaredCount(); ++i)
    {
        Declare(other.DeclaredTag(i));
    }
}

int CDcmElementSet::DeclaredCount() const
{
    return m_classShape != nullptr ? static_cast<int>(m_classShape->Declared().size()) : m_declared.GetSize();
}

DWORD CDcmElementSet::DeclaredTag(int index) const
{
    return m_classShape != nullptr ? m_classShape->Declared()[static_cast<std::size_t>(index)] : m_declared[index];
}

void CDcmElementSet::CopyDeclared(const CDcmElementSet& other)
{
    m_declared = other.m_declared;
    m_classShape = other.m_classShape;
}

void CDcmElementSet::ForgetDeclared()
{
    m_declared.RemoveAll();
    m_classShape = nullptr;
}

void CDcmElementSet::DeclaredTags(CStringArray& texts) const
{
    texts.RemoveAll();
    for (int i = 0; i < DeclaredCount(); ++i)
    {
        CString text;
        text.Format("%04X", static_cast<unsigned>(Tag::Group(DeclaredTag(i))));
        texts.Add(text);
        text.Format("%04X", static_cast<unsigned>(Tag::Element(DeclaredTag(i))));
        texts.Add(text);
    }
}

CDcmElement* CDcmElementSet::FindDeclared(int position) const
{
    const int index = position / 2;
    return position >= 0 && index < DeclaredCount() ? Elements().FindShown(DeclaredTag(index)) : nullptr;
}

void CDcmElementSet::BindSequence(const CString& group, const CString& element, CDcmElementSet& member)
{
    auto sequence = std::make_unique<CDcmElement>(group, element);
    if (sequence->Items() != nullptr)
    {
        sequence->Items()->CopyByReference(member);
        Elements().OwnShape().AddSequence(group, element);
        BindNext(member);
    }
    Add(sequence.release());
}

void CDcmElementSet::BindNext(CDcmElementSet& member)
{
    ElementsAsIs().BindNext(member.ElementsAsIs());
}
