#include "Varnotix/platform/DumpContext.h"

#include <charconv>

namespace
{
constexpr std::string_view kNull = "(NULL)";

/// Enough for every integer in any base used here and for every double.
constexpr std::size_t kNumberSize = 40;

// Not printf: its decimal point follows the locale, and a dump must read the same everywhere.
template <class TYPE, class... BASE>
std::string_view ToText(char (&buffer)[kNumberSize], TYPE value, BASE... base)
{
    const std::to_chars_result result = std::to_chars(buffer, buffer + kNumberSize, value, base...);
    return std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer));
}
} // namespace

CDumpContext::CDumpContext() : m_keeps(true), m_pStream(nullptr), m_pFile(nullptr) {}

CDumpContext::CDumpContext(std::FILE* stream) : m_keeps(false), m_pStream(stream), m_pFile(nullptr) {}

CDumpContext::CDumpContext(CFile* file) : m_keeps(false), m_pStream(nullptr), m_pFile(file) {}

void CDumpContext::Put(std::string_view text)
{
    if (m_keeps)
    {
        m_text += text;
    }
    else if (m_pStream != nullptr)
    {
        std::fwrite(text.data(), 1, text.size(), m_pStream);
    }
    else if (m_pFile != nullptr)
    {
        m_pFile->Write(text.data(), static_cast<UINT>(text.size()));
    }
}

CDumpContext& CDumpContext::operator<<(LPCTSTR text)
{
    Put(text == nullptr ? kNull : std::string_view(text));
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CString& text)
{
    Put(text.CText());
    return *this;
}

CDumpContext& CDumpContext::operator<<(char ch)
{
    Put(std::string_view(&ch, 1));
    return *this;
}

CDumpContext& CDumpContext::operator<<(double value)
{
    char buffer[kNumberSize];
    Put(ToText(buffer, value));
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* address)
{
    char buffer[kNumberSize];
    Put("0x");
    Put(ToText(buffer, reinterpret_cast<std::uintptr_t>(address), 16));
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject* object)
{
    if (object == nullptr)
    {
        Put(kNull);
    }
    else
    {
        object->Dump(*this);
    }
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject& object)
{
    object.Dump(*this);
    return *this;
}

void CDumpContext::PutSigned(long long value)
{
    char buffer[kNumberSize];
    Put(ToText(buffer, value));
}

void CDumpContext::PutUnsigned(unsigned long long value)
{
    char buffer[kNumberSize];
    Put(ToText(buffer, value));
}
