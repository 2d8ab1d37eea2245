#if !defined(_WIN32)

#include "deid/KeyedHash.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>
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
    const int file = open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
    {
        return false;
    }
    const bool isWritten = write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    const bool isClosed = close(file) == 0;
    if (!isWritten || !isClosed)
    {
        unlink(path);
    }
    return isWritten && isClosed;
}

#endif
