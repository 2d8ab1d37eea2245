/// One attempt to read a stream in a syntax, by the classic stream rules.
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamCursor.h"
#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"
#include "Varnotix/registry/PrivateTags.h"
#include "Varnotix/registry/PublicDictionary.h"

#include <optional>

class CDcmEntry;

/// Decodes element after element from a cursor, beginning in a given syntax. In a file whose meta information begins
/// with its group length, the syntax named there takes over after the meta group.
class CClassicDecoder
{
public:
    CClassicDecoder(CStreamCursor& cursor, int syntax) : m_cursor(cursor), m_syntax(syntax) {}

    /// Reads preamble and DICM prefix, then all elements of the stream into the set, which is emptied first and left
    /// empty when anything fails on the way. Its private tags stay in the dictionary.
    /// @return the fault at which decoding ended, or nothing for a stream that was read.
    std::optional<EParseFault> Decode(CDcmElementSet& set);

    /// The syntax in force.
    int Syntax() const { return m_syntax; }

    /// What was found beside the elements, up to where decoding ended.
    SReadResult& Result() { return m_result; }

private:
    struct STag
    {
        DWORD number;
        int vr; // Of the stream or, in implicit syntax, of the dictionary.
        const CDcmEntry* entry;
    };

    bool IsBigEndian() const { return m_syntax == SYNTAX_EXPLICIT_BIG; }
    bool IsExplicit() const { return m_syntax != SYNTAX_IMPLICIT_LITTLE; }
    EParseFault UnknownFault() const;

    /// What a level of the stream held.
    struct SItems
    {
        DWORD count = 0;
        bool oneEach = true; // All items, if there were any, held one element each.
    };

    // Attempts in a wrong syntax end soon and are many, so the way out of the levels is a return, not an exception.
    // Each of these is false after a fault, which m_fault then holds.
    bool Fail(EParseFault fault);
    bool DecodeLevel(CElementBody& elements, std::size_t limit, SItems& items);
    bool DecodeElement(const STag& tag, CElementBody& elements, std::size_t levelStart);
    bool ReadTag(const BYTE* header, STag& tag);
    bool ReadDelimiter(const STag& tag, bool& levelEnds);
    const CDcmEntry* FindPrivateTag(const BYTE* header, DWORD tag);
    bool DropLevel(DWORD length, SItems& items);
    bool ReadSequence(const STag& tag, DWORD length, CElementBody& elements);
    bool ReadValue(const STag& tag, DWORD length, CElementBody& elements, std::size_t levelStart);
    bool ReadPixelData(const STag& tag, DWORD length, CElementBody& elements);

    void ReadStart();
    CDcmElement& AddElement(const STag& tag, int vr, CElementBody& elements, CSharedBytes&& value);
    CSharedBytes ValueOf(const STag& tag, const BYTE* bytes, DWORD length);
    void Note(EReadNote note, const STag& tag, DWORD count);
    void NoteMetaElement(CDcmElement& element, std::size_t levelStart);
    void PassMetaEnd(std::size_t read);

    CStreamCursor& m_cursor;
    const CEntryTable& m_dictionary = Varnotix::PublicDictionary();
    int m_syntax;
    int m_depth = 0;
    int m_namedSyntax = SYNTAX_UNKNOWN; // By the meta information.
    DWORD m_itemLength = 0;             // Of the item or delimiter read last.
    DWORD m_metaEnd = 0;                // Counted from where decoding started; 0: not yet known.
    std::size_t m_bytesLeft = 0;        // After the last element, too few for another one.
    std::optional<EParseFault> m_fault;
    CElementBlocks m_elements;
    CByteChunks m_smallValues;
    CReadTags m_privateTags;
    SReadResult m_result;
};
