/// The stream codec: bytes to element sets and back.
#pragma once

#include "Varnotix/codec/ReadResult.h"
#include "Varnotix/codec/StreamRules.h"
#include "Varnotix/codec/TransferSyntax.h"
#include "Varnotix/element/DcmElementSet.h"

#include <vector>

class CArchive;
class CFile;
class CStreamCursor;

/// Reads a DICOM stream (PS3.10 file or bare data set) into an element set, and writes one.
///
/// By the classic stream rules, the syntax of a stream is found by attempts: explicit VR big endian, then explicit and
/// implicit VR little endian; in a file whose meta information begins with its group length, the syntax named there
/// takes over after the meta group. By the standard ones, the syntax is the one that the meta information names, or
/// else the one that fits the first elements. A parser is made once per read or write.
class VARNOTIX_EXPORT CDcmParser : public CObject
{
    DECLARE_DYNCREATE(CDcmParser)

public:
    /// Nesting of sequences that a read follows.
    static constexpr int kMaxDepth = Varnotix::kMaxDepth;

    CDcmParser();

    /// Which rules the next read or write follows; the classic ones at first.
    EStreamRules StreamRules() const { return m_rules; }
    void StreamRules(EStreamRules rules) { m_rules = rules; }

    /// Loading: reads the whole stream after the archive's position into the set, replacing its elements. A stream that
    /// no syntax can read leaves the set empty; Trials says why. By the standard rules, a stream that ends early, or
    /// cannot be read further, leaves the whole elements before that place, and ReadStopped is true.
    /// Storing: writes the set in the output syntax. By the classic rules, group length elements are removed from the
    /// set and made again, values lose their empty texts, and the set and all items are sorted. By the standard rules
    /// the set does not change. Exceptions of files, archives and memory pass through.
    void SerializeSet(CArchive& archive, CDcmElementSet& set);

    /// Prepares for a read in a syntax.
    void Reset(int syntax);

    /// Sets the output syntax to that of a UID; an unknown UID means that nothing is written.
    void SetOutputSyntax(const CString& uid);
    /// As above, for a syntax code. By the standard rules, Pixel Data then has the form in which it was read.
    void SetOutputSyntax(int syntax);

    /// The syntax that the last read found; the one in which to write.
    int OutputSyntax() const { return m_outputSyntax; }

    /// Whether a write makes a group length element for every group, and not only for group 0002.
    void SetGroupLengths(bool all) { m_groupLengths = all; }

    /// Whether a write by the standard rules adds a Transfer Syntax UID (0002,0010) that the set lacks.
    void SetMetaInformation(bool needed) { m_needsMeta = needed; }

    /// Makes reads by the standard rules end before the first element of the object itself, not of an item, that has
    /// this tag or a higher one; 0, as at first, lets them read all. Of a file no more is read than that takes.
    void SetStopTag(DWORD tag) { m_stopTag = tag; }

    /// The first 128 bytes of the last stream read, whether or not a DICM prefix followed.
    void Preamble(CByteArray& bytes) const { bytes = m_preamble; }

    /// The four bytes that were compared with "DICM" last.
    void Magic(CByteArray& bytes) const { bytes = m_prefix; }

    /// True when the last read, by the standard rules, ended before the end of the stream. The last of Trials says why
    /// and where.
    bool ReadStopped() const;

    /// Flushes the archive and puts its file back to its beginning.
    static void Rewind(CArchive& archive);

    /// The attempts of the last read that failed, in order. The last one made the read give up if the set is empty.
    const std::vector<SReadTrial>& Trials() const { return m_trials; }

    /// Remarkable places of the last stream, in stream order; see EReadNote. A host that writes the object again can
    /// report what is lost.
    const std::vector<SReadNote>& Notes() const { return m_notes; }

private:
    void Load(CArchive& archive, CDcmElementSet& set);
    void LoadClassic(CStreamCursor& cursor, CDcmElementSet& set);
    void LoadStandard(CStreamCursor& cursor, CDcmElementSet& set);
    void LoadHead(CFile& file, std::size_t start, CDcmElementSet& set);
    void Store(CArchive& archive, CDcmElementSet& set);
    void Take(SReadResult& result);

    EStreamRules m_rules = STREAM_RULES_CLASSIC;
    bool m_groupLengths = false;
    bool m_needsMeta = false;
    DWORD m_stopTag = 0;
    Varnotix::EPixelForm m_outputForm = Varnotix::EPixelForm::Unknown;
    int m_outputSyntax = SYNTAX_EXPLICIT_LITTLE;
    CByteArray m_preamble;
    CByteArray m_prefix;
    std::vector<SReadTrial> m_trials;
    std::vector<SReadNote> m_notes;
};
