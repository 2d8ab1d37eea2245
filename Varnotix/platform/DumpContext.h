/// The target of diagnostic texts.
#pragma once

#include "Varnotix/platform/File.h"

#include <concepts>
#include <cstdio>

/// A stream of diagnostic text, which either keeps the text or writes it at once.
class VARNOTIX_EXPORT CDumpContext
{
public:
    /// Keeps the text; see Text.
    CDumpContext();
    /// Writes to a C stream, which is not owned. Null drops the text.
    explicit CDumpContext(std::FILE* stream);
    /// Writes to a file, which is not owned; its exceptions pass through. Null drops the text.
    explicit CDumpContext(CFile* file);
    CDumpContext(const CDumpContext&) = delete;
    CDumpContext& operator=(const CDumpContext&) = delete;

    /// The text so far, when it is kept; otherwise empty.
    const CString& Text() const noexcept { return m_text; }

    /// Null is written as (NULL).
    CDumpContext& operator<<(LPCTSTR text);
    /// The text up to its first zero byte.
    CDumpContext& operator<<(const CString& text);
    CDumpContext& operator<<(char character);
    CDumpContext& operator<<(double value);
    /// The address in hexadecimal.
    CDumpContext& operator<<(const void* address);
    /// The object's own dump; null is written as (NULL).
    CDumpContext& operator<<(const CObject* object);
    CDumpContext& operator<<(const CObject& object);
    /// Every integer in decimal, bytes included.
    template <std::integral TYPE>
    CDumpContext& operator<<(TYPE value)
    {
        if constexpr (std::signed_integral<TYPE>)
        {
            PutSigned(value);
        }
        else
        {
            PutUnsigned(value);
        }
        return *this;
    }

private:
    void PutSigned(long long value);
    void PutUnsigned(unsigned long long value);
    void Put(std::string_view text);

    bool m_keeps;
    std::FILE* m_stream;
    CFile* m_file;
    CString m_text;
};
