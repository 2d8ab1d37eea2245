#if !defined(_WIN32)

#include "deid/KeyedHash.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

CDigest KeyedHash(std::string_view key, std::string_view text)
{
    CDigest digest{};
    unsigned size = 0;
    if (HMAC(EVP_sha256(), key.data(), static_cast<int>(key.size()), reinterpret_cast<const BYTE*>(text.data()),
             text.size(), digest.data(), &size) == nullptr ||
        size != digest.size())
    {
        throw CWriteFailure(kNoCryptography);
    }
    return digest;
}

CDigest RandomBytes()
{
    CDigest bytes{};
    if (RAND_bytes(bytes.data(), static_cast<int>(bytes.size())) != 1)
    {
        throw CWriteFailure(kNoCryptography);
    }
    return bytes;
}

bool CreateKeyFile(const CString& path, std::string_view text)
{
    // A link appears with the whole key or not at all, also for another process that is about to make it.
    std::string temporary = std::string(path.View()) + ".XXXXXX";
    const int file = mkstemp(temporary.data());
    if (file < 0)
    {
        return false;
    }
    const bool isWritten = write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const bool isClosed = close(file) == 0;
    bool isMade = isWritten && isClosed && link(temporary.c_str(), path) == 0;
    if (isWritten && isClosed && !isMade && errno != EEXIST && access(path, F_OK) != 0)
    {
        isMade = rename(temporary.c_str(), path) == 0; // Some file systems have no links.
    }
    unlink(temporary.c_str());
    return isMade;
}

#endif
