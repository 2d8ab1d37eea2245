// Reading and writing an information object as bytes (PS3.10 section 7).

#include "Varnotix/codec/DcmParser.h"
#include "Varnotix/iod/DcmIOD.h"
#include "Varnotix/iod/DcmIODPrivate.h"
#include "Varnotix/platform/Archive.h"
#include "Varnotix/platform/MemFile.h"

namespace
{

constexpr int kPreambleSize = 128;
constexpr UINT kMemoryGrowth = 1024;
constexpr int kArchiveBuffer = 4096;
constexpr int kMetaGroup = 0x0002;
constexpr int kTransferSyntaxElement = 0x0010;

/// The syntax that the store's own Transfer Syntax UID names, or the other one when it is absent or unknown.
int SyntaxToWrite(const CDcmElementSet& store, int otherwise)
{
    if (const CDcmElement* uid = store.Find(kMetaGroup, kTransferSyntaxElement))
    {
        const int named = SyntaxOfUid(uid->JoinedText());
        return named != SYNTAX_UNKNOWN ? named : otherwise;
    }
    return otherwise;
}

/// Runs a write into memory and hands the bytes over.
template <class WRITE>
void WriteToMemory(CByteArray& bytes, const WRITE& write)
{
    CMemFile file(kMemoryGrowth);
    CArchive archive(&file, CArchive::store, kArchiveBuffer);
    write(archive);
    archive.Close();
    file.DetachTo(bytes);
}

} // namespace

void CDcmIOD::IodSyntax(const CString& uid)
{
    const int syntax = SyntaxOfUid(uid);
    if (syntax != SYNTAX_UNKNOWN)
    {
        m_requestedSyntax = syntax;
        m_syntax = syntax;
    }
}

void CDcmIOD::WriteStart(CArchive& archive) const
{
    static constexpr BYTE kZeros[kPreambleSize] = {};
    archive.Write(m_preamble.GetSize() == kPreambleSize ? m_preamble.GetData() : kZeros, kPreambleSize);
    archive.Write("DICM", 4);
}

void CDcmIOD::Serialize(CArchive& archive)
{
    m_pathName = archive.GetFile()->GetFilePath();
    CDcmParser parser;
    if (archive.IsStoring())
    {
        m_syntax = m_requestedSyntax;
        if (m_fileFormat)
        {
            WriteStart(archive);
        }
        parser.SetOutputSyntax(SyntaxToWrite(*m_store, m_syntax));
        parser.SetGroupLengths(m_groupLengths);
        parser.SerializeSet(archive, *m_store);
    }
    else
    {
        parser.SerializeSet(archive, *m_store);
        m_syntax = parser.OutputSyntax();
        parser.Preamble(m_preamble);
        parser.Magic(m_magic);
        m_private->readTrials = parser.Trials();
        m_private->readNotes = parser.Notes();
    }
}

void CDcmIOD::Import(const CByteArray& bytes)
{
    CMemFile file;
    file.Attach(bytes.GetData(), static_cast<UINT>(bytes.GetSize()), kMemoryGrowth);
    CArchive archive(&file, CArchive::load, kArchiveBuffer);
    Serialize(archive);
}

void CDcmIOD::ExportFileFormat(CByteArray& bytes)
{
    WriteToMemory(bytes, [this](CArchive& archive) { Serialize(archive); });
}

void CDcmIOD::Export(CByteArray& bytes, const CString& uid)
{
    WriteToMemory(bytes,
                  [&](CArchive& archive)
                  {
                      CDcmParser parser;
                      parser.SetOutputSyntax(uid);
                      parser.SerializeSet(archive, *m_store);
                  });
}
