/// The line formats of "dictionary.txt" and "UidTable.txt".
#pragma once

#include "Varnotix/platform/String.h"

#include <string_view>

class CDcmEntry;
class CEntryTable;
class CNameList;

/// Takes one line of the dictionary file: group,element,VR,multiplicity,name.
///
/// An empty line and a line whose first visible character is # are skipped. Fields are trimmed, a missing one is
/// empty. The rest of the line after the name is ignored. A multiplicity that does not begin with a number is 1. The
/// first line of a tag counts. A malformed line yields an entry under whatever key it holds.
void AddDictionaryLine(std::string_view line, CEntryTable& dictionary);

/// The decimal number at the beginning of a multiplicity text ("1" of "1-n"), the nearest int if it is too large.
/// @param otherwise the result for a text that does not begin with a number.
int LeadingNumber(std::string_view text, int otherwise);

/// One entry as a line of text; see CDcmRegistry::ExportPublicDictionary.
CString DictionaryLine(std::string_view key, const CDcmEntry& entry);

/// Takes one line of the UID table: the UID up to the first blank, then its name. Empty lines are skipped; there are no
/// comments.
void AddUidLine(std::string_view line, CNameList& uids, CNameList& names);
