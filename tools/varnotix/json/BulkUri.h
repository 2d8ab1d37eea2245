/// References to values of large attributes (PS3.18 section F.2.6): "file:///folder/name.dcm#00880200[1].7FE00010" is
/// the value of an attribute, by its path, in a file.
#pragma once

#include "Varnotix/Varnotix.h"

#include <optional>
#include <string>
#include <string_view>

/// The reference to an attribute.
/// @param file a path, which may be relative to the current directory.
/// @param place the path of the attribute: tags and numbers of items.
std::string BulkUri(const CString& file, std::string_view place);

struct SBulkPlace
{
    CString file;
    std::string place;
};

/// @return nothing for a reference of another form.
std::optional<SBulkPlace> BulkPlaceOf(std::string_view uri);

/// The element at a place; null when the set does not have it.
const CDcmElement* FindBulk(const CDcmElementSet& set, std::string_view place);
