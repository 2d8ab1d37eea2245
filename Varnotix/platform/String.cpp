#include "Varnotix/platform/String.h"

#include "Varnotix/platform/Ascii.h"
#include "Varnotix/platform/Exceptions.h"

#include <climits>

#include <algorithm>
#include <cassert>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <stdexcept>

using namespace Varnotix;

namespace
{

std::string_view Checked(std::string_view text, std::size_t already = 0)
{
    if (text.size() > static_cast<std::size_t>(INT_MAX) - already)
    {
        ThrowMemoryException();
    }
    return text;
}

std::string_view FromC(const char* text)
{
    return text == nullptr ? std::string_view() : std::string_view(text);
}

std::size_t Clamp(int value)
{
    return value < 0 ? 0 : static_cast<std::size_t>(value);
}

std::size_t Inside(int index, std::size_t size)
{
    if (index < 0 || static_cast<std::size_t>(index) >= size)
    {
        throw std::out_of_range("text index");
    }
    return static_cast<std::size_t>(index);
}

int ToIndex(std::size_t place)
{
    return place == std::string::npos ? -1 : static_cast<int>(place);
}

} // namespace

CString::CString(const char* text) : m_text(Checked(FromC(text))) {}

CString::CString(const char* text, int length)
    : m_text(text == nullptr ? "" : text, text == nullptr ? 0 : Clamp(length))
{
}

CString::CString(char character, int repeat) : m_text(Clamp(repeat), character) {}

CString::CString(std::string_view text) : m_text(Checked(text)) {}

CString& CString::operator=(const char* text)
{
    m_text = Checked(FromC(text));
    return *this;
}

CString& CString::operator=(char character)
{
    m_text.assign(1, character);
    return *this;
}

void CString::Reserve(int length)
{
    if (length > GetLength())
    {
        m_text.reserve(Clamp(length));
    }
}

char CString::GetAt(int index) const
{
    return m_text[Inside(index, m_text.size())];
}

void CString::SetAt(int index, char character)
{
    m_text[Inside(index, m_text.size())] = character;
}

char CString::operator[](int index) const
{
    assert(index >= 0 && index <= GetLength());
    return m_text[static_cast<std::size_t>(index)];
}

CString& CString::operator+=(const CString& other)
{
    return *this += other.View();
}

CString& CString::operator+=(const char* text)
{
    return *this += FromC(text);
}

CString& CString::operator+=(char character)
{
    return *this += std::string_view(&character, 1);
}

CString& CString::operator+=(std::string_view text)
{
    m_text += Checked(text, m_text.size());
    return *this;
}

CString CString::Mid(int first) const
{
    return Mid(first, INT_MAX);
}

CString CString::Mid(int first, int count) const
{
    const std::size_t start = std::min(Clamp(first), m_text.size());
    return CString(View().substr(start, Clamp(count)));
}

CString CString::Left(int count) const
{
    return CString(View().substr(0, Clamp(count)));
}

CString CString::Right(int count) const
{
    return CString(View().substr(m_text.size() - std::min(Clamp(count), m_text.size())));
}

CString CString::SpanExcluding(const char* stops) const
{
    return CString(View().substr(0, m_text.find_first_of(FromC(stops))));
}

void CString::MakeUpper() noexcept
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), Upper);
}

void CString::MakeLower() noexcept
{
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), Lower);
}

void CString::TrimLeft()
{
    m_text.erase(0, std::min(m_text.find_first_not_of(kWhiteSpace), m_text.size()));
}

void CString::TrimRight()
{
    // npos + 1 is 0: nothing is left of white space only.
    m_text.erase(m_text.find_last_not_of(kWhiteSpace) + 1);
}

void CString::Trim()
{
    TrimRight();
    TrimLeft();
}

int CString::Find(char character, int start) const noexcept
{
    return ToIndex(m_text.find(character, Clamp(start)));
}

int CString::Find(const char* text, int start) const noexcept
{
    return text == nullptr ? -1 : ToIndex(m_text.find(text, Clamp(start)));
}

int CString::ReverseFind(char character) const noexcept
{
    return ToIndex(m_text.rfind(character));
}

int CString::Compare(const char* text) const noexcept
{
    return std::strcmp(m_text.c_str(), text == nullptr ? "" : text);
}

int CString::CompareNoCase(const char* text) const noexcept
{
    const char* left = m_text.c_str();
    const char* right = text == nullptr ? "" : text;
    while (*left != '\0' && Lower(*left) == Lower(*right))
    {
        ++left;
        ++right;
    }
    return static_cast<unsigned char>(Lower(*left)) - static_cast<unsigned char>(Lower(*right));
}

void CString::Format(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    std::string text;
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    try
    {
        if (length > 0)
        {
            text.resize(static_cast<std::size_t>(length));
            std::vsnprintf(text.data(), text.size() + 1, format, again);
        }
    }
    catch (...)
    {
        va_end(again);
        throw;
    }
    va_end(again);
    m_text.swap(text);
}
