/// Encodes one data element: header and value field in a transfer syntax (PS3.5 section 7).
#pragma once

#include "Varnotix/codec/OutputBuffer.h"

#include <cstdint>

/// Encoding takes two steps. Prepare brings the value into the form in which it is written and fixes its length, so
/// that all lengths of a set are known before its first byte. Write then puts header and value into the output.
class CElementEncoder
{
public:
    /// Does nothing for an element without dictionary entry.
    static void Prepare(CDcmElement& element);

    /// As Prepare, for a sequence element whose items are prepared and sorted already.
    /// @param size the encoded size of its items' elements.
    static void PrepareSequence(CDcmElement& element, std::uint64_t size);

    /// Writes an element that was prepared, with the value as it was then; nothing for one that never was.
    static void Write(const CDcmElement& element, COutputBuffer& out);

    /// Size of the header of an element of a VR.
    static DWORD HeaderSize(int syntax, int vr)
    {
        constexpr DWORD kLongHeader = 12;
        constexpr DWORD kShortHeader = 8;
        if (!Varnotix::HasLongForm(vr) || syntax == SYNTAX_IMPLICIT_LITTLE)
        {
            return kShortHeader;
        }
        return IsExplicit(syntax) ? kLongHeader : 0;
    }

    /// Size of header and value of an element that was prepared; 0 for one that never was.
    static DWORD EncodedSize(const CDcmElement& element)
    {
        const int syntax = element.m_encodedSyntax;
        return syntax == CDcmElement::kNeverEncoded ? 0 : HeaderSize(syntax, element.m_vr) + element.m_encodedValueSize;
    }

    static bool IsExplicit(int syntax) { return syntax == SYNTAX_EXPLICIT_LITTLE || syntax == SYNTAX_EXPLICIT_BIG; }

private:
    static DWORD ValueSize(CDcmElement& element);
    static DWORD TextSize(CDcmElement& element);
    static std::size_t BuiltTextSize(CDcmElement& element);
    static void WriteHeader(const CDcmElement& element, COutputBuffer& out);
    static void WriteValue(const CDcmElement& element, COutputBuffer& out);
    static void WriteText(const CDcmElement& element, COutputBuffer& out);
    static std::size_t WriteBuiltTexts(const CDcmElement& element, COutputBuffer& out);
    static void WriteItems(const CDcmElement& element, COutputBuffer& out);
};
