/// 8-bit text.
#pragma once

#include "Varnotix/platform/Export.h"
#include "Varnotix/platform/Types.h"

#include <compare>
#include <string>
#include <string_view>

/// 8-bit text with a length. It may hold zero bytes, but it compares as C text: up to the first zero byte. That is why
/// a UI value padded with a zero byte still equals its UID.
///
/// A text longer than 2^31-1 bytes throws CMemoryException, memory that ran out std::bad_alloc; the text then is
/// unchanged. Case conversions know ASCII only and never ask the locale. White space is the blank and the characters
/// 09H to 0DH.
class VARNOTIX_EXPORT CString
{
public:
    CString() noexcept = default;
    CString(const CString& other) = default;
    CString(CString&& other) noexcept = default;
    /// C text; null gives an empty text.
    CString(const char* text);
    /// The first `length` bytes at `text`, zero bytes included. Null or a length below 1 gives an empty text.
    CString(const char* text, int length);
    /// `repeat` times the same character; empty for a count below 1.
    explicit CString(char character, int repeat = 1);
    /// The whole view, zero bytes included.
    explicit CString(std::string_view text);
    ~CString() = default;

    CString& operator=(const CString& other) = default;
    CString& operator=(CString&& other) noexcept = default;
    CString& operator=(const char* text);
    CString& operator=(char character);

    /// The text with a terminating zero; valid until the text is changed.
    operator const char*() const noexcept { return m_text.c_str(); }
    /// The whole text, zero bytes included; valid until the text is changed.
    std::string_view View() const noexcept { return m_text; }
    /// The text up to its first zero byte; valid until the text is changed.
    std::string_view CText() const noexcept { return std::string_view(m_text.c_str()); }

    /// The length in bytes, zero bytes included.
    int GetLength() const noexcept { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const noexcept { return m_text.empty(); }
    void Empty() noexcept { m_text.clear(); }
    /// Makes room for `length` bytes, so that appending up to it moves nothing. Smaller sizes change nothing.
    void Reserve(int length);
    void Swap(CString& other) noexcept { m_text.swap(other.m_text); }

    /// The byte at `index`; throws std::out_of_range outside the text.
    char GetAt(int index) const;
    /// Replaces the byte at `index`; throws std::out_of_range outside the text.
    void SetAt(int index, char character);
    /// The byte at `index`, unchecked in release builds. The index GetLength() gives the terminating zero.
    char operator[](int index) const;

    CString& operator+=(const CString& other);
    CString& operator+=(const char* text);
    CString& operator+=(char character);
    CString& operator+=(std::string_view text);

    /// The text from `first` on. A start outside the text is moved to its nearest end.
    CString Mid(int first) const;
    /// At most `count` bytes from `first` on. A part outside the text is left out.
    CString Mid(int first, int count) const;
    /// The first `count` bytes, or as many as there are.
    CString Left(int count) const;
    /// The last `count` bytes, or as many as there are.
    CString Right(int count) const;
    /// The text before its first character that `stops` holds; all of it when there is none.
    CString SpanExcluding(const char* stops) const;

    void MakeUpper() noexcept;
    void MakeLower() noexcept;
    void TrimLeft();
    void TrimRight();
    /// Removes white space at both ends.
    void Trim();

    /// The index of the first `character` at or after `start`, or -1.
    int Find(char character, int start = 0) const noexcept;
    /// The index of the first `text` at or after `start`, or -1. Null is never found.
    int Find(const char* text, int start = 0) const noexcept;
    /// The index of the last `character`, or -1.
    int ReverseFind(char character) const noexcept;

    /// Below, at or above zero as this text sorts before, with or after `text`, byte by byte. Null is the empty text.
    int Compare(const char* text) const noexcept;
    /// As Compare, with ASCII letters compared as lower case.
    int CompareNoCase(const char* text) const noexcept;

    /// Replaces the text by the formatted one, of any length; the arguments may refer to this text. A format that the
    /// C library refuses gives an empty text.
    void Format(const char* format, ...) VARNOTIX_PRINTF(2, 3);

    friend bool operator==(const CString& left, const CString& right) noexcept { return left.CText() == right.CText(); }
    friend bool operator==(const CString& left, const char* right) noexcept { return left.Compare(right) == 0; }
    friend std::strong_ordering operator<=>(const CString& left, const CString& right) noexcept
    {
        return left.Compare(right.m_text.c_str()) <=> 0;
    }
    friend std::strong_ordering operator<=>(const CString& left, const char* right) noexcept
    {
        return left.Compare(right) <=> 0;
    }
    friend CString operator+(CString left, const CString& right)
    {
        left += right;
        return left;
    }
    friend CString operator+(CString left, const char* right)
    {
        left += right;
        return left;
    }
    friend CString operator+(CString left, char right)
    {
        left += right;
        return left;
    }
    friend CString operator+(const char* left, const CString& right)
    {
        CString sum(left);
        sum += right;
        return sum;
    }
    friend CString operator+(char left, const CString& right)
    {
        CString sum(left);
        sum += right;
        return sum;
    }

private:
    std::string m_text;
};
