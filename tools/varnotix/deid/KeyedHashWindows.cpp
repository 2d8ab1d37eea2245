#if defined(_WIN32)

#include "deid/KeyedHash.h"

// The second header needs the types of the first.
// clang-format off
#include <windows.h>
#include <bcrypt.h>
// clang-format on

namespace
{

/// The system's HMAC-SHA256, opened once.
BCRYPT_ALG_HANDLE Algorithm()
{
    static const BCRYPT_ALG_HANDLE algorithm = []
    {
        BCRYPT_ALG_HANDLE opened = nullptr;
        const NTSTATUS status =
            BCryptOpenAlgorithmProvider(&opened, BCRYPT_SHA256_ALGORITHM, nullptr, BCRYPT_ALG_HANDLE_HMAC_FLAG);
        return status == 0 ? opened : nullptr;
    }();
    if (algorithm == nullptr)
    {
        throw CWriteFailure(kNoCryptography);
    }
    return algorithm;
}

PUCHAR BytesOf(std::string_view text)
{
    return reinterpret_cast<PUCHAR>(const_cast<char*>(text.data())); // The interface does not write to them.
}

} // namespace

CDigest KeyedHash(std::string_view key, std::string_view text)
{
    CDigest digest{};
    BCRYPT_HASH_HANDLE hash = nullptr;
    const ULONG keySize = static_cast<ULONG>(key.size());
    if (BCryptCreateHash(Algorithm(), &hash, nullptr, 0, BytesOf(key), keySize, 0) != 0)
    {
        throw CWriteFailure(kNoCryptography);
    }
    const bool isMade = BCryptHashData(hash, BytesOf(text), static_cast<ULONG>(text.size()), 0) == 0 &&
                        BCryptFinishHash(hash, digest.data(), static_cast<ULONG>(digest.size()), 0) == 0;
    BCryptDestroyHash(hash);
    if (!isMade)
    {
        throw CWriteFailure(kNoCryptography);
    }
    return digest;
}

CDigest RandomBytes()
{
    CDigest bytes{};
    if (BCryptGenRandom(nullptr, bytes.data(), static_cast<ULONG>(bytes.size()), BCRYPT_USE_SYSTEM_PREFERRED_RNG) != 0)
    {
        throw CWriteFailure(kNoCryptography);
    }
    return bytes;
}

bool CreateKeyFile(const CString& path, std::string_view text)
{
    // The key appears whole or not at all, also for another process that is about to make it.
    CString temporary;
    temporary.Format(".%lu.tmp", GetCurrentProcessId());
    temporary = path + temporary;
    bool isWritten = false;
    try
    {
        CFile file(temporary, CFile::modeCreate | CFile::modeReadWrite);
        file.Write(text.data(), static_cast<UINT>(text.size()));
        file.Close();
        isWritten = true;
    }
    catch (const CFileException&)
    {
        isWritten = false;
    }
    const bool isMade = isWritten && MoveFileA(temporary, path) != 0; // Fails when the file exists.
    if (!isMade)
    {
        DeleteFileA(temporary);
    }
    return isMade;
}

#endif
