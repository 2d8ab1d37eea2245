/// The encoder of value fields of text.
#pragma once

#include "text/CharacterSet.h"

/// Encodes one value field.
class CTextEncoder
{
public:
    /// The arguments must outlive the encoder.
    CTextEncoder(const CCharacterSet& set, std::string_view text, std::string_view vr);

    SEncodedText Run();

private:
    bool Put(char32_t character);
    bool PutFromSet(ECodeSet set, char32_t character);
    void LeavePairs();
    void Activate(ECodeSet& active, ECodeSet set);
    void Reset();
    bool Ends(char32_t character) const;
    CString ReasonAgainst(char32_t character) const;

    const CCharacterSet& m_set;
    CCharacterSet::SHalves m_active;
    std::string_view m_rest;
    bool m_hasManyValues;
    bool m_isName;
    std::string m_bytes;
};
