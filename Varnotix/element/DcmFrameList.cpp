#include "Varnotix/element/DcmFrameList.h"

#include "Varnotix/platform/DumpContext.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CDcmFrameList, CDcmList)

namespace
{

constexpr int kOffsetSize = 4;

CSharedBytes Shared(const CByteArray& bytes)
{
    return CSharedBytes::Copy(bytes.GetData(), static_cast<std::size_t>(bytes.GetSize()));
}

const CDcmFrame& Frame(const CObject* object)
{
    return static_cast<const CDcmFrame&>(*object);
}

} // namespace

CDcmFrameList::CDcmFrameList() : CDcmList(new CDcmListBody) {}

CDcmFrameList::CDcmFrameList(const CDcmFrameList& other)
    : CDcmList(new CDcmListBody), m_offsetTable(other.m_offsetTable), m_readForm(other.m_readForm)
{
    other.CopyFramesInto(Body());
}

CDcmFrameList& CDcmFrameList::operator=(const CDcmFrameList& other)
{
    if (this != &other)
    {
        CDcmListBody copies;
        other.CopyFramesInto(copies);
        m_offsetTable = other.m_offsetTable;
        m_readForm = other.m_readForm;
        Body().list.Swap(copies.list);
    }
    return *this;
}

CDcmFrameList::~CDcmFrameList() = default;

bool CDcmFrameList::operator==(const CDcmFrameList& other) const
{
    const CObjectList& mine = Body().list;
    const CObjectList& others = other.Body().list;
    return SharesBodyWith(other) ||
           std::equal(mine.begin(), mine.end(), others.begin(), others.end(),
                      [](const CObject* a, const CObject* b) { return Frame(a).Size() == Frame(b).Size(); });
}

void CDcmFrameList::CopyFramesInto(CDcmListBody& target) const
{
    target.list.Reserve(target.list.GetCount() + GetCount());
    for (const CObject* frame : Body().list)
    {
        target.Append(std::make_unique<CDcmFrame>(Frame(frame)));
    }
}

void CDcmFrameList::AddFrame(const CSharedBytes& bytes)
{
    Body().Append(std::make_unique<CDcmFrame>(bytes, GetCount()));
    m_readForm = FORM_UNKNOWN;
}

void CDcmFrameList::AddFrame(const CByteArray& bytes)
{
    AddFrame(Shared(bytes));
}

void CDcmFrameList::AddFrame(const CWordArray& words)
{
    AddFrame(CSharedBytes::Copy(reinterpret_cast<const BYTE*>(words.GetData()),
                                static_cast<std::size_t>(words.GetSize()) * sizeof(WORD)));
}

void CDcmFrameList::SetFrame(int index, const CSharedBytes& bytes)
{
    m_readForm = FORM_UNKNOWN;
    if (CDcmFrame* frame = GetFrame(index))
    {
        frame->Append(bytes);
    }
    else
    {
        Body().Append(std::make_unique<CDcmFrame>(bytes, index));
    }
}

void CDcmFrameList::SetFrame(int index, const CByteArray& bytes)
{
    SetFrame(index, Shared(bytes));
}

void CDcmFrameList::RemoveAll()
{
    Body().DestroyObjects();
    m_offsetTable.RemoveAll();
    m_readForm = FORM_UNKNOWN;
}

CDcmFrameList::EForm CDcmFrameList::ReadForm() const
{
    const CObjectList& frames = Body().list;
    const bool changed =
        std::any_of(frames.begin(), frames.end(), [](const CObject* frame) { return Frame(frame).WasHandedOut(); });
    return changed ? FORM_UNKNOWN : m_readForm;
}

std::uint64_t CDcmFrameList::TotalSize() const
{
    std::uint64_t total = 0;
    for (const CObject* frame : Body().list)
    {
        total += Frame(frame).Size();
    }
    return total;
}

void CDcmFrameList::Describe(CStringArray& texts) const
{
    CString text;
    text.Format("frame cnt = %d", GetCount());
    texts.Add(text);
    text.Format("total size = %llu", static_cast<unsigned long long>(TotalSize()));
    texts.Add(text);
    text.Format("offset entries = %d", m_offsetTable.GetSize() / kOffsetSize);
    texts.Add(text);
    text.Format("offset table size = %d", m_offsetTable.GetSize());
    texts.Add(text);
    for (const CObject* object : Body().list)
    {
        text.Format("frame number = %d", Frame(object).Number());
        texts.Add(text);
        text.Format("frame size = %llu", static_cast<unsigned long long>(Frame(object).Size()));
        texts.Add(text);
    }
}

void CDcmFrameList::Dump(CDumpContext& context) const
{
    CStringArray texts;
    Describe(texts);
    for (const CString& text : texts)
    {
        context << "[" << text << "]";
    }
}
