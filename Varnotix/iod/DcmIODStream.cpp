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
    const int syntax = Varnotix::SyntaxOfUid(uid);
    if (syntax != SYNTAX_UNKNOWN)
    {
        m_requestedSyntax = syntax;
        m_syntax = syntax;
    }
}

/// The syntax that the store's own Transfer Syntax UID names, or the one that was set when it is absent or unknown.
void CDcmIOD::SetOutputSyntax(CDcmParser& parser) const
{
    const CDcmElement* uid = m_store->Find(Varnotix::Tag::kTransferSyntaxUid);
    parser.SetOutputSyntax(uid != nullptr ? uid->JoinedText() : CString());
    if (parser.OutputSyntax() == SYNTAX_UNKNOWN)
    {
        parser.SetOutputSyntax(m_syntax);
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
    parser.StreamRules(m_streamRules);
    if (archive.IsStoring())
    {
        m_syntax = m_requestedSyntax;
        if (m_fileFormat)
        {
            WriteStart(archive);
        }
        SetOutputSyntax(parser);
        parser.SetMetaInformation(m_fileFormat);
        parser.SetGroupLengths(m_groupLengths);
        parser.SerializeSet(archive, *m_store);
    }
    else
    {
        parser.SetStopTag(m_stopTag);
        parser.SerializeSet(archive, *m_store);
        m_syntax = parser.OutputSyntax();
        parser.Preamble(m_preamble);
        parser.Magic(m_magic);
        m_private->readTrials = parser.Trials();
        m_private->readNotes = parser.Notes();
        if (m_streamRules == STREAM_RULES_STANDARD)
        {
            m_requestedSyntax = m_syntax;
        }
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
                      parser.StreamRules(m_streamRules);
                      parser.SetOutputSyntax(uid);
                      parser.SerializeSet(archive, *m_store);
                  });
}
