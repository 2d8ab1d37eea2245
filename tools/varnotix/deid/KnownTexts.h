/// Texts that identify the patient of an object, as far as its own attributes show them.
#pragma once

#include "Varnotix/Varnotix.h"

#include <string>
#include <string_view>
#include <vector>

/// What the profile removes from an object, to be looked for in texts that stay.
class CKnownTexts
{
public:
    /// Gathers the words of names, and the identifiers, addresses and dates that the profile removes or replaces, at
    /// every depth. Descriptions are not identifying as such.
    /// @param options values of EProfileOption.
    void Gather(CDcmElementSet& store, unsigned options);

    /// The first attribute that the profile leaves as it is and that has one of them; empty when there is none.
    CString FindLeft(CDcmElementSet& store, unsigned options) const;

    /// True when a text has one of them as a word, in either case.
    bool AreIn(std::string_view text) const;

    /// The text with asterisks in place of each of them, of runs of six digits or more, and of mail addresses.
    std::string Cleaned(std::string_view text) const;

private:
    void Add(std::string_view text);
    void AddParts(std::string_view value, std::string_view separators);

    /// The size of the longest one that is whole words at a place of a text in lower case; 0 when there is none.
    std::size_t MatchAt(std::string_view text, std::size_t place) const;

    std::vector<std::string> m_texts; // In lower case, sorted.
};
