#include "files/OutputFile.h"

#include "Varnotix/platform/FileSearch.h"
#include "files/FileKinds.h"
#include "files/OutputFolder.h"
#include "files/Unfinished.h"

#include <filesystem>
#include <random>
#include <string>
#include <utility>

namespace
{

namespace fs = std::filesystem;

// On Windows, program arguments are not in the encoding that the standard library's paths expect.
constexpr bool kHasPlainPaths = fs::path::preferred_separator == '/';

CString RandomName()
{
    std::random_device device;
    CString name;
    name.Format("%08x%08x", device(), device());
    return name;
}

} // namespace

CWriteFailure WriteFailureOf(const CFileException& failure, const CString& shownName)
{
    const CFileException renamed(failure.m_cause, failure.m_lOsError, shownName, "write");
    return CWriteFailure(std::string(renamed.GetErrorMessage().View()));
}

COutputFile::COutputFile(const CString& path) : m_path(path), m_shown(path)
{
    if (path.IsEmpty())
    {
        throw CWriteFailure("cannot write an output without a name");
    }
    if (path == "/dev/stdout" || path == "/dev/fd/1")
    {
        // Where it leads to a file, that holds what was written before and must not be replaced.
        m_path = "-";
    }
    if (m_path == "-")
    {
        m_file = std::make_unique<CMemFile>();
        return;
    }
    if constexpr (kHasPlainPaths)
    {
        std::error_code error;
        const fs::path wanted{std::string(path.CText())};
        const fs::file_status status = fs::status(wanted, error);
        if (fs::is_directory(status))
        {
            throw WriteFailureOf(CFileException(CFileException::invalidFile), m_shown);
        }
        if (fs::is_regular_file(status))
        {
            // A link keeps pointing to the file; the file is what changes.
            const fs::path target = fs::canonical(wanted, error);
            m_path = error ? m_path : CString(target.string().c_str());
        }
        else if (fs::exists(status))
        {
            m_file = std::make_unique<CMemFile>();
            return;
        }
    }
    OpenTemporary();
}

COutputFile::~COutputFile()
{
    if (!m_temporary.IsEmpty())
    {
        DeleteUnfinished(m_temporary, std::move(m_file));
    }
}

void COutputFile::OpenTemporary()
{
    const CString folder = FolderNameOf(m_path);
    CString name;
    do
    {
        name = folder + ".varnotix-" + RandomName() + ".tmp";
    } while (Varnotix::FileExists(name));
    try
    {
        m_file = CreateUnfinished(name);
        m_temporary = name;
    }
    catch (const CFileException& failure)
    {
        throw WriteFailureOf(failure, m_shown);
    }
}

void COutputFile::Commit()
{
    try
    {
        if (m_temporary.IsEmpty())
        {
            WriteThrough();
        }
        else
        {
            m_file->Flush();
            m_file->Close();
            Replace();
        }
    }
    catch (const CFileException& failure)
    {
        throw WriteFailureOf(failure, m_shown);
    }
}

void COutputFile::Replace()
{
    CopyOwner(m_path, m_temporary);
    if (!FinishFile(m_temporary, m_path))
    {
        throw CWriteFailure("cannot write '" + std::string(m_shown.CText()) +
                            "': the existing file cannot be replaced");
    }
    m_temporary.Empty();
}

void COutputFile::WriteThrough()
{
    const BYTE* bytes = m_file->GetBufferPtr();
    const auto size = static_cast<std::size_t>(m_file->GetLength());
    if (m_path == "-")
    {
        WriteStandardOutput({reinterpret_cast<const char*>(bytes), size});
        FlushStandardOutput();
        return;
    }
    CFile device(m_path, CFile::modeWrite);
    device.Write(bytes, static_cast<UINT>(size));
    device.Close();
}
