#include "Varnotix/codec/DcmParser.h"

#include "Varnotix/codec/StreamDecoder.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/File.h"
#include "Varnotix/registry/DcmRegistry.h"

#include <climits>

IMPLEMENT_DYNCREATE(CDcmParser, CObject)

namespace
{

constexpr int kDeflatedRow = 3;
constexpr int kFirstEncapsulatedRow = 5;
constexpr int kLastEncapsulatedRow = 27;

/// The bytes behind an archive: a memory file's own, or a real file read once. A file is not mapped, for a file that
/// is cut short while mapped kills the process.
CStreamCursor OpenStream(CFile& file)
{
    const ULONGLONG length = file.GetLength();
    if (length > static_cast<ULONGLONG>(INT_MAX))
    {
        throw CMemoryException();
    }
    const auto size = static_cast<std::size_t>(length);
    if (const BYTE* memory = file.GetBufferPtr())
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
int NextSyntax(int fault, int syntax)
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

int SyntaxOfUid(const CString& uid)
{
    const int row = CDcmRegistry::Global().UidEnum(uid);
    if (row == SYNTAX_IMPLICIT_LITTLE || row == SYNTAX_EXPLICIT_LITTLE || row == SYNTAX_EXPLICIT_BIG)
    {
        return row;
    }
    const bool carriedAsLittle = row == kDeflatedRow || (row >= kFirstEncapsulatedRow && row <= kLastEncapsulatedRow);
    return carriedAsLittle ? SYNTAX_EXPLICIT_LITTLE : SYNTAX_UNKNOWN;
}

CDcmParser::CDcmParser() = default;

void CDcmParser::Reset(int syntax)
{
    m_currentSyntax = syntax;
    m_depth = 0;
    m_syntaxKnown = false;
    m_pendingSyntax = SYNTAX_UNKNOWN;
    m_metaEnd = 0;
    m_outputSyntax = SYNTAX_UNKNOWN;
    m_notes.clear();
}

void CDcmParser::SetOutputSyntax(const CString& uid)
{
    m_outputSyntax = SyntaxOfUid(uid);
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
    // The first trial reads on from where the archive stands, every later one from the beginning of the file.
    const ULONGLONG start = file.GetPosition();
    CStreamCursor cursor = OpenStream(file);
    cursor.Seek(static_cast<std::size_t>(start));
    m_trials.clear();
    bool triedLittle = false;
    bool triedImplicit = false;
    int syntax = SYNTAX_EXPLICIT_BIG;
    while (syntax != SYNTAX_UNKNOWN)
    {
        Reset(syntax);
        try
        {
            CStreamDecoder(*this, cursor).Decode(set);
            m_outputSyntax = m_currentSyntax;
            break;
        }
        catch (const CParseException& fault)
        {
            m_trials.push_back({m_currentSyntax, fault.m_code, static_cast<DWORD>(cursor.Position())});
            syntax = NextSyntax(fault.m_code, m_currentSyntax);
        }
        bool& tried = syntax == SYNTAX_EXPLICIT_LITTLE ? triedLittle : triedImplicit;
        if (syntax == SYNTAX_UNKNOWN || tried)
        {
            set.RemoveAll();
            m_notes.clear();
            break;
        }
        tried = true;
        cursor.Seek(0);
    }
    file.Seek(static_cast<long long>(cursor.Position()), CFile::begin);
}
