/// The decoder of value fields of text.
#pragma once

#include "text/CharacterSet.h"

/// Decodes one value field.
class CTextDecoder
{
public:
    /// The arguments must outlive the decoder.
    CTextDecoder(const CCharacterSet& set, std::string_view bytes, std::string_view vr);

    SDecodedText Run();

private:
    void TakeWhole();
    void TakeExtended();
    bool TakeDelimiter();
    bool TakeControl();
    void TakeCode(ECodeSet set);
    std::size_t SizeOfChineseCode() const;
    void Append(char32_t character);

    const CCharacterSet& m_set;
    CCharacterSet::SHalves m_active;
    std::string_view m_rest;
    bool m_hasManyValues;
    bool m_isName;
    SDecodedText m_text;
};
