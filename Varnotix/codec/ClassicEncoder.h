/// Writes an element set by the classic stream rules: group lengths, order and bytes.
#pragma once

#include "Varnotix/codec/OutputBuffer.h"
#include "Varnotix/element/DcmElementSet.h"

#include <cstdint>

/// Encodes in two steps, so that all lengths are known before the first byte. The first one changes the set: it removes
/// group lengths and makes them again, drops empty texts and sorts.
class CClassicEncoder
{
public:
    /// @param groupLengths whether every group gets a group length, and not only group 0002.
    CClassicEncoder(int syntax, bool groupLengths) : m_syntax(syntax), m_groupLengths(groupLengths) {}

    /// Brings the set into the form in which it is written.
    /// @return the size of the stream in bytes.
    std::uint64_t Prepare(CDcmElementSet& set) const;

    /// Writes a set that was prepared.
    static void Write(const CDcmElementSet& set, COutputBuffer& out);

private:
    int m_syntax;
    bool m_groupLengths;
};
