#include "Varnotix/platform/DumpContext.h"

#include <charconv>

namespace
{

constexpr std::string_view kNull = "(NULL)";

/// Enough for every integer in any base used here and for every double.
constexpr std::size_t kNumberSize = 40;

// Not printf: its decimal point follows the locale, and a dump must be the same everywhere.
template <class TYPE, class... BASE>
std::string_view ToText(char (&buffer)[kNumberSize], TYPE value, BASE... base)
{
    const std::to_chars_result result = std::to_chars(buffer, buffer + kNumberSize, value, base...);
    return std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer));
}

} // namespace

CDumpContext::CDumpContext() : m_keeps(true), m_stream(nullptr), m_file(nullptr) {}

CDumpContext::CDumpContext(std::FILE* stream) : m_keeps(false), m_stream(stream), m_file(nullptr) {}

CDumpContext::CDumpContext(CFile* file) : m_keeps(false), m_stream(nullptr), m_file(file) {}

void CDumpContext::Put(std::string_view text)
{
    if (m_keeps)
    {
        m_text += text;
    }
    else if (m_stream != nullptr)
    {
        std::fwrite(text.data(), 1, text.size(), m_stream);
    }
    else if (m_file != nullptr)
    {
        m_file->Write(text.data(), static_cast<UINT>(text.size()));
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

CDumpContext& CDumpContext::operator<<(char character)
{
    Put(std::string_view(&character, 1));
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
