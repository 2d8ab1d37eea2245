#include "Varnotix/codec/DcmParser.h"

#include "Varnotix/codec/ClassicDecoder.h"
#include "Varnotix/codec/ClassicEncoder.h"
#include "Varnotix/codec/OutputBuffer.h"
#include "Varnotix/codec/StandardDecoder.h"
#include "Varnotix/codec/StandardEncoder.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/File.h"

#include <climits>

#include <algorithm>

IMPLEMENT_DYNCREATE(CDcmParser, CObject)

namespace
{

/// The bytes of an archive's file: a memory file's own, or a real file read once. A file is not mapped, for a file that
/// is cut short while mapped kills the process.
/// @param most how many bytes of a real file to read.
CStreamCursor OpenStream(CFile& file, ULONGLONG most = ULLONG_MAX)
{
    const BYTE* memory = file.GetBufferPtr();
    const ULONGLONG wanted = memory != nullptr ? file.GetLength() : std::min(file.GetLength(), most);
    if (wanted > static_cast<ULONGLONG>(INT_MAX))
    {
        throw CMemoryException();
    }
    const auto size = static_cast<std::size_t>(wanted);
    if (memory != nullptr)
    {
        return {memory, size, CSharedBytes()};
    }
    BYTE* bytes = nullptr;
    const CSharedBytes block = CSharedBytes::Allocate(size, bytes);
    file.Seek(0, CFile::begin);
    const std::size_t read = size > 0 ? file.Read(bytes, static_cast<UINT>(size)) : 0;
    return {bytes, read, block};
}

/// The syntax to try after a fault, or SYNTAX_UNKNOWN to give up.
int NextSyntax(EParseFault fault, int syntax)
{
    switch (fault)
    {
    case PARSE_LENGTH_BEYOND_STREAM:
    case PARSE_ITEM_AT_TOP:
    case PARSE_UNKNOWN_IN_IMPLICIT:
        if (syntax == SYNTAX_EXPLICIT_BIG)
        {
            return SYNTAX_EXPLICIT_LITTLE;
        }
        return syntax == SYNTAX_EXPLICIT_LITTLE ? SYNTAX_IMPLICIT_LITTLE : SYNTAX_UNKNOWN;
    case PARSE_UNKNOWN_IN_LITTLE:
        return SYNTAX_IMPLICIT_LITTLE;
    case PARSE_UNKNOWN_IN_BIG:
        return SYNTAX_EXPLICIT_LITTLE;
    default:
        return SYNTAX_UNKNOWN;
    }
}

} // namespace

CDcmParser::CDcmParser() = default;

void CDcmParser::Reset(int)
{
    m_outputSyntax = SYNTAX_UNKNOWN;
    m_trials.clear();
    m_notes.clear();
}

void CDcmParser::SetOutputSyntax(const CString& uid)
{
    m_outputSyntax = Varnotix::SyntaxOfUid(uid);
    m_outputForm = Varnotix::PixelFormOfUid(uid);
}

void CDcmParser::SetOutputSyntax(int syntax)
{
    m_outputSyntax = syntax;
    m_outputForm = Varnotix::EPixelForm::Unknown;
}

bool CDcmParser::ReadStopped() const
{
    return !m_notes.empty() && m_notes.back().note == READ_STOPPED;
}

void CDcmParser::Rewind(CArchive& archive)
{
    archive.Flush();
    archive.GetFile()->Seek(0, CFile::begin);
    archive.Flush();
}

void CDcmParser::SerializeSet(CArchive& archive, CDcmElementSet& set)
{
    if (archive.IsLoading())
    {
        Load(archive, set);
    }
    else
    {
        Store(archive, set);
    }
}

void CDcmParser::Load(CArchive& archive, CDcmElementSet& set)
{
    archive.Flush();
    CFile& file = *archive.GetFile();
    // The first attempt reads on from where the archive is, every later one from the beginning of the file.
    const ULONGLONG start = file.GetPosition();
    if (m_rules == STREAM_RULES_STANDARD && m_stopTag != 0)
    {
        LoadHead(file, static_cast<std::size_t>(start), set);
        return;
    }
    CStreamCursor cursor = OpenStream(file);
    cursor.Seek(static_cast<std::size_t>(start));
    m_trials.clear();
    if (m_rules == STREAM_RULES_STANDARD)
    {
        LoadStandard(cursor, set);
    }
    else
    {
        LoadClassic(cursor, set);
    }
    file.Seek(static_cast<long long>(cursor.Position()), CFile::begin);
}

/// Reads more of the file until the elements before the stop tag are whole.
void CDcmParser::LoadHead(CFile& file, std::size_t start, CDcmElementSet& set)
{
    constexpr ULONGLONG kFirst = 1U << 15U;
    constexpr ULONGLONG kGrowth = 8;
    for (ULONGLONG most = std::max<ULONGLONG>(kFirst, start);; most *= kGrowth)
    {
        CStreamCursor cursor = OpenStream(file, most);
        cursor.Seek(start);
        m_trials.clear();
        LoadStandard(cursor, set);
        const bool isCut = ReadStopped() ? m_trials.back().fault == PARSE_CUT_OFF : cursor.Left() == 0;
        if (!isCut || cursor.Length() >= file.GetLength())
        {
            file.Seek(static_cast<long long>(cursor.Position()), CFile::begin);
            return;
        }
    }
}

void CDcmParser::Take(SReadResult& result)
{
    m_preamble.Swap(result.preamble);
    m_prefix.Swap(result.prefix);
    m_notes = std::move(result.notes);
}

void CDcmParser::LoadClassic(CStreamCursor& cursor, CDcmElementSet& set)
{
    bool triedLittle = false;
    bool triedImplicit = false;
    int syntax = SYNTAX_EXPLICIT_BIG;
    while (syntax != SYNTAX_UNKNOWN)
    {
        m_outputSyntax = SYNTAX_UNKNOWN;
        CClassicDecoder decoder(cursor, syntax);
        const std::optional<EParseFault> fault = decoder.Decode(set);
        Take(decoder.Result());
        if (!fault)
        {
            m_outputSyntax = decoder.Syntax();
            return;
        }
        m_trials.push_back({decoder.Syntax(), *fault, static_cast<DWORD>(cursor.Position())});
        syntax = NextSyntax(*fault, decoder.Syntax());
        bool& tried = syntax == SYNTAX_EXPLICIT_LITTLE ? triedLittle : triedImplicit;
        if (syntax == SYNTAX_UNKNOWN || tried)
        {
            set.RemoveAll();
            m_notes.clear();
            return;
        }
        tried = true;
        cursor.Seek(0);
    }
}

void CDcmParser::LoadStandard(CStreamCursor& cursor, CDcmElementSet& set)
{
    CStandardDecoder decoder(cursor, m_stopTag);
    decoder.Decode(set);
    Take(decoder.Result());
    m_outputSyntax = decoder.Result().syntax;
    if (ReadStopped())
    {
        const SReadNote& stop = m_notes.back();
        m_trials.push_back({m_outputSyntax, static_cast<EParseFault>(stop.count), stop.offset});
    }
}

void CDcmParser::Store(CArchive& archive, CDcmElementSet& set)
{
    if (m_outputSyntax == SYNTAX_UNKNOWN)
    {
        return;
    }
    COutputBuffer out(archive);
    if (m_rules == STREAM_RULES_STANDARD)
    {
        CStandardEncoder encoder({m_outputSyntax, m_outputForm, m_groupLengths, m_needsMeta});
        encoder.Plan(set);
        out.Reserve(encoder.Size());
        encoder.Write(out);
    }
    else
    {
        CClassicEncoder encoder(m_outputSyntax, m_groupLengths);
        out.Reserve(encoder.Prepare(set));
        encoder.Write(set, out);
    }
    out.Flush();
}
