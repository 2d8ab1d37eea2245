#include "Varnotix/codec/FragmentReader.h"

#include "Varnotix/codec/ByteOrder.h"
#include "Varnotix/codec/ItemTags.h"
#include "Varnotix/element/DcmFrameList.h"
#include "Varnotix/registry/DictionaryFile.h"

#include <cstdint>

using namespace Varnotix;

bool CFragmentReader::ReadItem(CSharedBytes& bytes, bool& isDelimiter)
{
    m_faultOffset = m_cursor.Position();
    const BYTE* header = m_cursor.Take(kItemHeaderSize);
    if (header == nullptr)
    {
        return false;
    }
    const DWORD tag = Tag::Make(Word(header, m_bigEndian), Word(header + 2, m_bigEndian));
    isDelimiter = tag == Tag::kSequenceDelimitationItem;
    if (!isDelimiter && tag != Tag::kItem)
    {
        m_fault = PARSE_NO_ITEM;
        return false;
    }
    if (isDelimiter)
    {
        return true;
    }
    const DWORD length = DoubleWord(header + 4, m_bigEndian);
    const BYTE* value = m_cursor.Take(length);
    if (value == nullptr)
    {
        return false;
    }
    bytes = m_cursor.Keep(value, length);
    return true;
}

bool CFragmentReader::Read()
{
    bool isDelimiter = false;
    if (!ReadItem(m_offsetTable, isDelimiter))
    {
        return false;
    }
    m_hasOffsetTable = !isDelimiter;
    while (!isDelimiter)
    {
        CSharedBytes fragment;
        if (!ReadItem(fragment, isDelimiter))
        {
            return false;
        }
        if (!isDelimiter)
        {
            m_fragments.push_back(std::move(fragment));
        }
    }
    return true;
}

/// For each fragment, whether a frame begins with it.
std::vector<bool> CFragmentReader::FrameStarts(const CString& numberOfFrames) const
{
    const std::size_t entries = m_offsetTable.Size() / 4;
    std::vector<bool> starts(m_fragments.size(), false);
    std::size_t entry = 0;
    std::uint64_t offset = 0;
    for (std::size_t i = 0; i < m_fragments.size(); ++i)
    {
        if (entry < entries && DoubleWord(m_offsetTable.Data() + 4 * entry, false) == offset)
        {
            starts[i] = true;
            ++entry;
        }
        offset += kItemHeaderSize + m_fragments[i].Size();
    }
    if (entries > 0 && entry == entries && !starts.empty() && starts[0])
    {
        return starts;
    }
    const bool isOneFrame = LeadingNumber(numberOfFrames.CText(), 1) == 1;
    starts.assign(m_fragments.size(), !isOneFrame);
    if (!starts.empty())
    {
        starts[0] = true;
    }
    return starts;
}

void CFragmentReader::FillFrames(CDcmFrameList& frames, const CString& numberOfFrames) const
{
    const std::vector<bool> starts = FrameStarts(numberOfFrames);
    for (std::size_t i = 0; i < m_fragments.size(); ++i)
    {
        if (starts[i])
        {
            frames.AddFrame(m_fragments[i]);
        }
        else
        {
            frames.SetFrame(frames.GetCount() - 1, m_fragments[i]);
        }
    }
    CByteArray table;
    m_offsetTable.CopyTo(table);
    frames.SetOffsetTable(table);
}
