/// One trial of reading a stream in a syntax.
#pragma once

#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/codec/StreamCursor.h"

class CDcmEntry;

/// Decodes element after element from a cursor, in the parser's current syntax. Throws CParseException at the first
/// fault.
class CStreamDecoder
{
public:
    CStreamDecoder(CDcmParser& parser, CStreamCursor& cursor) : m_parser(parser), m_cursor(cursor) {}

    /// Reads preamble and magic, then all elements of the stream into the set, which is emptied first and left empty
    /// when anything is thrown on the way. The private tags that were met become lasting ones.
    void Decode(CDcmElementSet& set);

private:
    struct STag
    {
        int group;
        int element;
        int vr; // As the stream or, in implicit syntax, the dictionary tells it.
        const CDcmEntry* entry;
    };

    bool IsBigEndian() const { return m_parser.m_currentSyntax == SYNTAX_EXPLICIT_BIG; }
    bool IsExplicit() const { return m_parser.m_currentSyntax != SYNTAX_IMPLICIT_LITTLE; }
    int UnknownFault() const;

    void ReadStart();
    /// @return true when all items, if there were any, held one element each.
    bool DecodeLevel(CDcmElementSet& set, std::size_t limit, DWORD& items);
    bool DropLevel(std::size_t limit, DWORD& items);
    void DecodeElement(const STag& tag, CDcmElementSet& set, std::size_t levelStart);
    void Note(EReadNote note, const STag& tag, DWORD count);
    STag ReadTag(const BYTE* header) const;
    bool ReadDelimiter(const STag& tag);
    DWORD ReadLength(bool shortForm);
    void ReadSequence(const STag& tag, DWORD length, CDcmElementSet& set);
    CDcmElement& ReadValue(const STag& tag, DWORD length, CDcmElementSet& set);
    void NoteMetaElement(CDcmElement& element, std::size_t levelStart);
    void PassMetaEnd(std::size_t read);

    void ReadPixelData(CDcmElement& element, DWORD length);
    void ReadOffsetTable(CDcmElement& element);
    void ReadFragments(CDcmElement& element);
    bool ReadItemHeader(int shortFault, int badFault, DWORD& length);
    CSharedBytes ReadFrameBytes(DWORD length, int vr, int shortFault);

    CDcmParser& m_parser;
    CStreamCursor& m_cursor;
    CByteChunks m_smallValues;
    std::size_t m_bytesLeft = 0; // Behind the last element, too few for another one.
};
