#include "Varnotix/asl/AslValues.h"

#include "Varnotix/asl/AslLine.h"
#include "Varnotix/asl/ScanNumber.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace Varnotix
{

namespace
{

/// Adds notes for one line.
struct SLineNotes
{
    CScriptNotes& notes;
    int line;

    void Add(EScriptNote kind) const { notes.Add(line, kind); }

    template <class NUMBER>
    void Check(const SScanned<NUMBER>& scanned, bool fits) const
    {
        if (!scanned.whole)
        {
            Add(SCRIPT_BAD_NUMBER);
        }
        else if (!scanned.inRange || !fits)
        {
            Add(SCRIPT_OUT_OF_RANGE);
        }
    }
};

/// True for a number that 16 bits hold, signed or not. Negative numbers were scanned as their 32-bit pattern.
bool FitsWord(DWORD value)
{
    return value <= 0xFFFFU || value >= 0xFFFF8000U;
}

/// The double whose low half holds the float's bits and whose high half is zero: what scripts have for FD.
double DoubleOfFloatBits(float value)
{
    return std::bit_cast<double>(std::uint64_t{std::bit_cast<std::uint32_t>(value)});
}

template <class ARRAY, class CONVERT>
ARRAY Convert(std::string_view values, const CONVERT& convert)
{
    ARRAY converted;
    // A value takes many times the memory of its comma, so the array is sized exactly.
    converted.Reserve(static_cast<int>(std::count(values.begin(), values.end(), ',')) + 1);
    for (std::string_view text; NextAslValue(values, text);)
    {
        converted.Add(convert(text));
    }
    return converted;
}

/// Stores several values as an array, a single one by itself.
template <class ARRAY, class ADD, class SET>
void Store(const ARRAY& values, const SLineNotes& notes, const ADD& add, const SET& set)
{
    const bool stored = values.GetSize() == 1 ? add(values[0]) : values.IsEmpty() || set(values);
    if (!stored)
    {
        notes.Add(SCRIPT_NOT_STORED);
    }
}

void StoreTexts(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    auto texts = Convert<CStringArray>(values, [](std::string_view text) { return CString(text); });
    Store(
        texts, notes, [&](const CString& text) { return element.AddText(text) || text.IsEmpty(); },
        [&](const CStringArray&)
        {
            // A list is stored unchanged: the setter would keep one text of many under a multiplicity of 1.
            CStringArray* mine = element.Texts();
            if (mine != nullptr)
            {
                mine->Swap(texts);
            }
            return mine != nullptr;
        });
}

void StoreWords(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    const auto words = Convert<CWordArray>(values,
                                           [&](std::string_view text)
                                           {
                                               const SScanned<DWORD> scanned = ScanUnsigned(text);
                                               notes.Check(scanned, FitsWord(scanned.value));
                                               return static_cast<WORD>(scanned.value & 0xFFFFU);
                                           });
    Store(
        words, notes, [&](WORD word) { return element.AddWord(word); },
        [&](const CWordArray& list) { return element.SetWords(list); });
}

void StoreIntegers(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    const auto integers = Convert<CUIntArray>(values,
                                              [&](std::string_view text)
                                              {
                                                  const SScanned<DWORD> scanned = ScanUnsigned(text);
                                                  notes.Check(scanned, true);
                                                  return static_cast<UINT>(scanned.value);
                                              });
    Store(
        integers, notes, [&](UINT integer) { return element.AddInteger(integer); },
        [&](const CUIntArray& list) { return element.SetIntegers(list); });
}

void StoreFloats(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    const auto floats = Convert<CFloatArray>(values,
                                             [&](std::string_view text)
                                             {
                                                 const SScanned<float> scanned = ScanFloat(text);
                                                 notes.Check(scanned, true);
                                                 return scanned.value;
                                             });
    // OF values are one array, so that a single one is an array of one.
    const auto set = [&](const CFloatArray& list) { return element.SetFloats(list); };
    Store(
        floats, notes, [&](float value) { return element.HasVr(VR_OF) ? set(floats) : element.AddFloat(value); }, set);
}

void StoreDoubles(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    const auto doubles = Convert<CDoubleArray>(values,
                                               [&](std::string_view text)
                                               {
                                                   const SScanned<float> scanned = ScanFloat(text);
                                                   notes.Check(scanned, true);
                                                   if (std::bit_cast<std::uint32_t>(scanned.value) != 0)
                                                   {
                                                       notes.Add(SCRIPT_DOUBLE_CHANGED);
                                                   }
                                                   return DoubleOfFloatBits(scanned.value);
                                               });
    Store(
        doubles, notes, [&](double value) { return element.AddDouble(value); },
        [&](const CDoubleArray& list) { return element.SetDoubles(list); });
}

void StoreBytes(CDcmElement& element, std::string_view values, const SLineNotes& notes)
{
    CByteArray bytes;
    for (std::string_view text; NextAslValue(values, text);)
    {
        const SScanned<int> scanned = ScanInteger(text);
        if (scanned.found)
        {
            notes.Check(scanned, scanned.value >= -128 && scanned.value <= 255);
            bytes.Add(static_cast<BYTE>(static_cast<unsigned>(scanned.value) & 0xFFU));
        }
        else
        {
            bytes.AppendRaw(reinterpret_cast<const BYTE*>(text.data()), static_cast<int>(text.size()));
        }
    }
    if (!bytes.IsEmpty())
    {
        element.SetBytes(bytes);
    }
}

} // namespace

void StoreAslValues(CDcmElement& element, std::string_view values, CScriptNotes& notes, int line)
{
    const SLineNotes lineNotes{notes, line};
    const EVrKind kind = element.Frames() != nullptr ? EVrKind::OtherWords : VrKind(element.Vr());
    switch (kind)
    {
    case EVrKind::Text:
        StoreTexts(element, values, lineNotes);
        break;
    case EVrKind::Words:
        StoreWords(element, values, lineNotes);
        break;
    case EVrKind::Integers:
        StoreIntegers(element, values, lineNotes);
        break;
    case EVrKind::Floats:
        StoreFloats(element, values, lineNotes);
        break;
    case EVrKind::Doubles:
        StoreDoubles(element, values, lineNotes);
        break;
    case EVrKind::Bytes:
        StoreBytes(element, values, lineNotes);
        break;
    case EVrKind::Items:
        break;
    case EVrKind::OtherWords:
    case EVrKind::RawOnly:
        // The line of a UN element has no list, so that its values are missing either way.
        if (!values.empty() || kind == EVrKind::RawOnly)
        {
            lineNotes.Add(SCRIPT_NOT_IMPORTED);
        }
        break;
    }
}

} // namespace Varnotix
