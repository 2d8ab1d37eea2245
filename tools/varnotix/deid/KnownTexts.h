/// Texts that identify the patient of an object, as far as its own attributes show them.
#pragma once

#include "text/WalkCharacters.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the profile removes from an object, to be looked for in texts that stay.
class CKnownTexts
{
public:
    /// Gathers the words of names, and the identifiers, addresses, dates and UIDs that the profile removes or replaces,
    /// at every depth. Descriptions are not identifying as such.
    /// @param options values of EProfileOption.
    void Gather(CDcmElementSet& store, unsigned options);

    /// The attributes that the profile or an option leaves as they are and that have one of them, and how often: texts,
    /// bytes, kept documents, and comments of compressed frames. Attributes in all items of a sequence are one.
    std::vector<std::pair<CString, int>> FindLeft(CDcmElementSet& store, unsigned options) const;

    /// True when a value has one of them as a word, in either case, as bytes or by its character set.
    /// @param characters has reached the element, for this function and the next.
    bool AreIn(const CDcmElement& element, CWalkCharacters& characters) const;

    /// The text of an element, in its character set, with asterisks in place of each of them, of runs of six digits or
    /// more, and of mail addresses.
    std::string Cleaned(const CDcmElement& element, CWalkCharacters& characters) const;

private:
    bool AreIn(std::string_view text) const;
    std::string Cleaned(std::string_view text) const;
    bool AreInComments(const CDcmFrameList& frames) const;
    void Add(std::string_view text, int vr);
    void AddParts(std::string_view value, int vr);

    /// The size of the longest one that is whole words at a place of a text in small letters; 0 when there is none.
    std::size_t MatchAt(std::string_view text, std::size_t place) const;

    std::vector<std::string> m_texts; // In small letters, sorted; as bytes of the object, and in UTF-8.
};
