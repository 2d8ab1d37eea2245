#include "deid/Key.h"

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/platform/FileSearch.h"
#include "files/Input.h"

namespace
{

constexpr std::size_t kShortestKey = 32; // Characters; as hexadecimal digits 128 bits.

std::string HexText(const CDigest& digest)
{
    std::string text;
    for (const BYTE byte : digest)
    {
        text += "0123456789ABCDEF"[byte >> 4U];
        text += "0123456789ABCDEF"[byte & 0x0FU];
    }
    return text;
}

} // namespace

CDeidKey CDeidKey::Random()
{
    return CDeidKey(HexText(RandomBytes()));
}

std::optional<CDeidKey> CDeidKey::OfFile(const CString& path, const CReport& report)
{
    if (path != "-" && !Varnotix::FileExists(path) && CreateKeyFile(path, HexText(RandomBytes()) + "\n"))
    {
        report.Say("a new key is in " + path + ": who has it can find the old UIDs and IDs by trying");
    }
    std::optional<CDeidKey> key;
    ReportReadFailures(path, report,
                       [&]
                       {
                           CByteArray bytes;
                           ReadBytes(path, bytes);
                           const std::string_view text(reinterpret_cast<const char*>(bytes.GetData()),
                                                       static_cast<std::size_t>(bytes.GetSize()));
                           key = CDeidKey(std::string(Varnotix::TrimBlanks(text)));
                           return true;
                       });
    if (key && key->m_text.size() < kShortestKey)
    {
        CString least;
        least.Format("%d", static_cast<int>(kShortestKey));
        report.Error("--key: " + path + " has fewer than " + least + " characters, which protects nothing");
        return std::nullopt;
    }
    return key;
}

CDigest CDeidKey::Hash(std::string_view purpose, std::string_view text) const
{
    std::string whole(purpose);
    whole += '\0';
    whole += text;
    return KeyedHash(m_text, whole);
}

CString CDeidKey::HexOf(std::string_view purpose, std::string_view text, std::size_t digits) const
{
    return CString(HexText(Hash(purpose, text)).substr(0, digits));
}
