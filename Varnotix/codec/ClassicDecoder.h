/// One attempt to read a stream in a syntax, by the classic stream rules.
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamCursor.h"
#include "Varnotix/element/DcmElementSet.h"
#include "Varnotix/registry/PrivateTags.h"

class CDcmEntry;

/// Decodes element after element from a cursor, beginning in a given syntax. In a file whose meta information begins
/// with its group length, the syntax named there takes over after the meta group.
class CClassicDecoder
{
public:
    CClassicDecoder(CStreamCursor& cursor, int syntax) : m_cursor(cursor), m_syntax(syntax) {}

    /// Reads preamble and DICM prefix, then all elements of the stream into the set, which is emptied first and left
    /// empty when anything is thrown on the way. Its private tags stay in the dictionary. Throws
    /// CParseException at the first fault.
    void Decode(CDcmElementSet& set);

    /// The syntax in force.
    int Syntax() const { return m_syntax; }

    /// What was found beside the elements, up to where decoding ended.
    SReadResult& Result() { return m_result; }

private:
    struct STag
    {
        int group;
        int element;
        int vr; // Of the stream or, in implicit syntax, of the dictionary.
        const CDcmEntry* entry;
    };

    bool IsBigEndian() const { return m_syntax == SYNTAX_EXPLICIT_BIG; }
    bool IsExplicit() const { return m_syntax != SYNTAX_IMPLICIT_LITTLE; }
    EParseFault UnknownFault() const;

    void ReadStart();
    /// @return true when all items, if there were any, held one element each.
    bool DecodeLevel(CDcmElementSet& set, std::size_t limit, DWORD& items);
    bool DropLevel(std::size_t limit, DWORD& items);
    void DecodeElement(const STag& tag, CDcmElementSet& set, std::size_t levelStart);
    void Note(EReadNote note, const STag& tag, DWORD count);
    STag ReadTag(const BYTE* header);
    bool ReadDelimiter(const STag& tag);
    DWORD ReadLength(bool shortForm);
    void ReadSequence(const STag& tag, DWORD length, CDcmElementSet& set);
    CDcmElement& ReadValue(const STag& tag, DWORD length, CDcmElementSet& set);
    void NoteMetaElement(CDcmElement& element, std::size_t levelStart);
    void PassMetaEnd(std::size_t read);

    CStreamCursor& m_cursor;
    int m_syntax;
    int m_depth = 0;
    int m_namedSyntax = SYNTAX_UNKNOWN; // By the meta information.
    DWORD m_itemLength = 0;             // Of the item or delimiter read last.
    DWORD m_metaEnd = 0;                // Counted from where decoding started; 0: not yet known.
    std::size_t m_bytesLeft = 0;        // After the last element, too few for another one.
    CByteChunks m_smallValues;
    CReadTags m_privateTags;
    SReadResult m_result;
};
