#if !defined(_WIN32)

#include "text/CodeTable.h"

#include <array>
#include <cstring>
#include <iconv.h>
#include <memory>
#include <type_traits>

namespace
{

constexpr const char* kCharacters = "UTF-32LE";

struct SCloseConverter
{
    void operator()(iconv_t converter) const { ::iconv_close(converter); }
};
using CConverter = std::unique_ptr<std::remove_pointer_t<iconv_t>, SCloseConverter>;

const char* NameOf(ECodeSet set)
{
    constexpr std::array<const char*, kCodeSetCount> kNames = {"",
                                                               "",
                                                               "",
                                                               "ISO-8859-1",
                                                               "ISO-8859-2",
                                                               "ISO-8859-3",
                                                               "ISO-8859-4",
                                                               "ISO-8859-5",
                                                               "ISO-8859-6",
                                                               "ISO-8859-7",
                                                               "ISO-8859-8",
                                                               "ISO-8859-9",
                                                               "ISO-8859-15",
                                                               "",
                                                               "TIS-620",
                                                               "EUC-JP",
                                                               "EUC-JP",
                                                               "EUC-KR",
                                                               "EUC-CN",
                                                               "GB18030",
                                                               "GBK",
                                                               ""};
    return kNames[static_cast<std::size_t>(set)];
}

/// Null where the system lacks the set.
iconv_t Open(CConverter& converter, const char* to, const char* from)
{
    if (!converter)
    {
        const iconv_t opened = ::iconv_open(to, from);
        // The failure value is not a null pointer.
        converter.reset(opened != reinterpret_cast<iconv_t>(-1) ? opened : nullptr);
    }
    return converter.get();
}

/// Converts the whole input; 0 bytes when that fails, or the output has no room.
std::size_t Convert(iconv_t converter, std::string_view input, char* output, std::size_t room)
{
    if (converter == nullptr)
    {
        return 0;
    }
    char* from = const_cast<char*>(input.data());
    char* to = output;
    std::size_t left = input.size();
    std::size_t free = room;
    ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
    // A count above 0 means characters that were replaced by others.
    return ::iconv(converter, &from, &left, &to, &free) == 0 && left == 0 ? room - free : 0;
}

} // namespace

char32_t SystemCharacterOf(ECodeSet set, std::string_view code)
{
    thread_local std::array<CConverter, kCodeSetCount> converters; // They keep a state.
    std::string form(code);
    if (set == ECodeSet::Kanji2)
    {
        form.insert(0, 1, '\x8F');
    }
    std::array<unsigned char, 8> bytes{};
    const std::size_t size = Convert(Open(converters[static_cast<std::size_t>(set)], kCharacters, NameOf(set)), form,
                                     reinterpret_cast<char*>(bytes.data()), bytes.size());
    return size == 4 ? static_cast<char32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16) : 0;
}

std::string SystemCodeOf(ECodeSet set, char32_t character)
{
    thread_local std::array<CConverter, kCodeSetCount> converters; // They keep a state.
    const std::array<char, 4> bytes = {static_cast<char>(character & 0xFF), static_cast<char>(character >> 8 & 0xFF),
                                       static_cast<char>(character >> 16 & 0xFF), 0};
    std::array<char, 8> code{};
    const std::size_t size = Convert(Open(converters[static_cast<std::size_t>(set)], NameOf(set), kCharacters),
                                     {bytes.data(), bytes.size()}, code.data(), code.size());
    const bool isKanji2 = size == 3 && code[0] == '\x8F';
    if (set == ECodeSet::Kanji2)
    {
        return isKanji2 ? std::string(code.data() + 1, 2) : std::string();
    }
    // EUC has one byte for ASCII, and a prefix for sets other than the main one.
    const bool isPair = size == 2 && code[0] != '\x8E';
    return WidthOf(set) == 2 && !isPair ? std::string() : std::string(code.data(), size);
}

#endif
