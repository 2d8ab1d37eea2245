/// Reads a stream by the standard stream rules: PS3.5 and PS3.10.
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamCursor.h"
#include "Varnotix/codec/VrChoices.h"
#include "Varnotix/element/ElementBlocks.h"
#include "Varnotix/element/ElementBody.h"

#include <cstdint>

class CDcmEntry;

/// Decodes a PS3.10 file or a bare data set, in one pass.
///
/// Every element keeps the VR, the item and the length form that the stream gives it. Private tags are neither learned
/// nor taken from what classic reads have learned. Where the stream breaks PS3.5 and can be read all the same, a note
/// reports it. Where it cannot be read further, the whole elements before that place remain, and the last note is
/// READ_STOPPED.
class CStandardDecoder
{
public:
    /// @param stopTag ends the read before the first element of the object itself with this tag or a higher one;
    ///        0: none.
    explicit CStandardDecoder(CStreamCursor& cursor, DWORD stopTag = 0) : m_cursor(cursor), m_stopTag(stopTag) {}

    /// Replaces the elements of the set. Exceptions of memory pass through and leave the set empty.
    void Decode(CDcmElementSet& set);

    SReadResult& Result() { return m_result; }

private:
    /// A data set: the whole object, or one item.
    struct SLevel
    {
        CElementBody& elements;
        SLevel* around;   // Null for the object itself.
        std::size_t end;  // Where the data set, or what holds it, ends.
        bool isDelimited; // Ended by an item delimiter.
        int syntax;
        int depth = 0;
        std::uint32_t lastTag = 0;
        int number = -1;                             // In m_choices, when something there depends on it.
        const CDcmElement* numberOfFrames = nullptr; // The first one that has a value.
    };

    struct SHeader
    {
        std::size_t position;
        DWORD tag;
        int vr;
        Varnotix::ELaterVr laterVr;
        bool isImplicit; // No VR in the stream.
        DWORD length;
        const CDcmEntry* entry;
    };

    void DecodeStream(CElementBody& elements);
    bool ReadStart();
    void ReadMeta(SLevel& level);
    int FindSyntax(const CElementBody& elements);
    void DecodeLevel(SLevel& level);
    bool ReadDelimiter(SLevel& level, DWORD tag);
    bool IsPadding();
    SHeader ReadHeader(SLevel& level);
    void ReadExplicit(SHeader& header, SLevel& level);
    void ReadWithoutVr(SHeader& header, SLevel& level);
    void ReadImplicit(SHeader& header, SLevel& level);
    static void SetListedVr(SHeader& header);
    void ReadElement(const SHeader& header, SLevel& level);
    void ReadValue(const SHeader& header, SLevel& level);
    void ReadFragments(const SHeader& header, SLevel& level);
    void ReadSequence(const SHeader& header, SLevel& level);
    void ReadItems(SLevel& level, CElementBody& items, std::size_t end, bool isDelimited, int syntax);
    DWORD ItemLength(const BYTE* header, int syntax) const;
    bool BeginsWithItem(DWORD length, int syntax) const;
    CDcmElement& AddElement(const SHeader& header, SLevel& level, CSharedBytes&& value);
    CSharedBytes ValueOf(const SHeader& header, const SLevel& level, const BYTE* bytes);
    void Note(EReadNote note, DWORD tag, std::size_t offset, DWORD count = 0);
    [[noreturn]] void Stop(EParseFault fault, DWORD tag, std::size_t offset);
    int NumberOf(SLevel& level);

    CStreamCursor& m_cursor;
    DWORD m_stopTag;
    std::size_t m_knownByte = 0; // Where IsPadding last found a byte that is not zero.
    CElementBlocks m_elements;
    CByteChunks m_smallValues;
    SReadResult m_result;
    CVrChoices m_choices;
};
