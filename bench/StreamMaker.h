/// Puts together a PS3.10 file in explicit VR little endian, element by element.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <string>
#include <string_view>

class CStreamMaker
{
public:
    /// Begins with preamble, magic and file meta information.
    explicit CStreamMaker(std::string_view transferSyntaxUid = "1.2.840.10008.1.2.1");

    /// An element whose value is padded to an even length, with a zero byte for UI and a blank for other VRs.
    void Element(int group, int element, std::string_view vr, std::string_view value);
    void Pixels(std::size_t size);

    /// Sequences and items are of undefined length, so that they need not be known when they begin.
    void BeginSequence(int group, int element);
    void EndSequence();
    void BeginItem();
    void EndItem();

    /// An item with a value: the offset table and the fragments of encapsulated pixel data.
    void Fragment(std::string_view value);
    void BeginEncapsulatedPixels();

    /// The stream so far.
    CByteArray Bytes() const;

private:
    void Put16(std::size_t value);
    void Put32(std::size_t value);
    void Header(int group, int element, std::string_view vr, std::size_t length);
    void Delimiter(int element, std::size_t length);

    std::string m_bytes;
};
