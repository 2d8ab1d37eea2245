/// Encodes one data element: header and value field in a transfer syntax (PS3.5 section 7).
#pragma once

#include "Varnotix/codec/OutputBuffer.h"

/// Encoding takes two steps. Prepare brings the value into the form in which it is written and fixes its length, so
/// that all lengths of a set are known before its first byte. Write then puts header and value into the output.
class CElementEncoder
{
public:
    /// Does nothing for an element without dictionary entry.
    static void Prepare(CDcmElement& element);

    /// As Prepare, for a sequence element whose items are prepared and sorted already.
    static void PrepareSequence(CDcmElement& element);

    /// Writes an element that was prepared, with the value as it was then; nothing for one that never was.
    static void Write(const CDcmElement& element, COutputBuffer& out);

    /// Size of the header of an element of a VR.
    static DWORD HeaderSize(int syntax, int vr);

private:
    static DWORD ValueSize(CDcmElement& element);
    static DWORD TextSize(CDcmElement& element);
    static DWORD ItemsSize(const CDcmElement& element);
    static void PrepareItems(CDcmElement& element);
    static void WriteHeader(const CDcmElement& element, COutputBuffer& out);
    static void WriteValue(const CDcmElement& element, COutputBuffer& out);
    static void WriteText(const CDcmElement& element, COutputBuffer& out);
    static void WriteItems(const CDcmElement& element, COutputBuffer& out);
    static bool IsEncapsulated(const CDcmElement& element);
};
