/// The stream codec: bytes to element sets and back.
#pragma once

#include "Varnotix/codec/ParseException.h"
#include "Varnotix/element/DcmElementSet.h"

#include <vector>

class CArchive;
class CStreamDecoder;

/// The syntax code that a UID stands for: rows 1, 2 and 4 of the UID table are themselves; row 3 and rows 5 to 27
/// (deflated and encapsulated syntaxes) are carried as explicit VR little endian; any other UID is unknown.
VARNOTIX_EXPORT int SyntaxOfUid(const CString& uid);

/// Reads a DICOM stream (PS3.10 file or bare data set) into an element set, and writes one.
///
/// The syntax of a stream is found by trial: explicit VR big endian, then explicit and implicit VR little endian. In a
/// file whose meta information begins with its group length, the syntax named there takes over after the meta group.
/// A parser is made once per read or write.
class VARNOTIX_EXPORT CDcmParser : public CObject
{
    DECLARE_DYNCREATE(CDcmParser)

public:
    /// Nesting of sequences that a read follows.
    static constexpr int kMaxDepth = 64;

    CDcmParser();

    /// Loading: reads the whole stream behind the archive's file into the set, replacing its elements. A stream that
    /// no syntax can read leaves the set empty; Trials tells why. Storing: writes the set in the output syntax; group
    /// length elements are removed from the set and made anew, values lose their empty texts, the set and all items
    /// are sorted. Exceptions of files, archives and memory pass through.
    void SerializeSet(CArchive& archive, CDcmElementSet& set);

    /// Prepares for a read in a syntax.
    void Reset(int syntax);

    /// Sets the output syntax to that of a UID; an unknown UID means that nothing is written.
    void SetOutputSyntax(const CString& uid);
    void SetOutputSyntax(int syntax) { m_outputSyntax = syntax; }

    /// The syntax that the last read found; the one in which to write.
    int OutputSyntax() const { return m_outputSyntax; }

    /// Whether a write makes a group length element for every group, and not for group 0002 alone.
    void SetGroupLengths(bool all) { m_groupLengths = all; }

    /// The first 128 bytes of the last stream read, whether or not a magic followed.
    void Preamble(CByteArray& bytes) const { bytes = m_preamble; }

    /// The four bytes that were compared with "DICM" last.
    void Magic(CByteArray& bytes) const { bytes = m_magic; }

    /// Flushes the archive and puts its file back to its beginning.
    static void Rewind(CArchive& archive);

    /// The trials of the last read that failed, in order. The last one made the read give up if the set is empty.
    const std::vector<SReadTrial>& Trials() const { return m_trials; }

    /// What the last read could not keep as the stream held it, in stream order. For diagnosis: a host that writes the
    /// object again can tell what is lost.
    const std::vector<SReadNote>& Notes() const { return m_notes; }

private:
    friend class CStreamDecoder;

    void Load(CArchive& archive, CDcmElementSet& set);
    void Store(CArchive& archive, CDcmElementSet& set);

    bool m_groupLengths = false;
    int m_depth = 0;
    bool m_syntaxKnown = false;
    int m_currentSyntax = SYNTAX_EXPLICIT_LITTLE;
    int m_pendingSyntax = SYNTAX_UNKNOWN;
    DWORD m_metaEnd = 0; // Counted from where decoding started; 0: not yet known.
    int m_outputSyntax = SYNTAX_EXPLICIT_LITTLE;
    CByteArray m_preamble;
    CByteArray m_magic;
    std::vector<SReadTrial> m_trials;
    std::vector<SReadNote> m_notes;
};
