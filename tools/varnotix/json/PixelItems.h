/// The bytes of attributes whose values are bytes; those of encapsulated pixel data are its items.
#pragma once

#include "Varnotix/Varnotix.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

/// How many bytes the value has; 0 for VRs of texts, numbers and items.
std::uint64_t BulkSize(const CDcmElement& element);

/// Calls the action with the parts of the value, in their order. Encapsulated pixel data gives the items of a stream
/// in explicit VR little endian, from the offset table to the delimiter (PS3.5 section A.4).
void ForBulk(const CDcmElement& element, const std::function<void(std::string_view)>& action);

/// True for bytes that are items of encapsulated pixel data, up to a delimiter.
bool AreItems(std::string_view bytes);

/// The Pixel Data element with these items; null when they cannot be read.
std::unique_ptr<CDcmElement> PixelDataOfItems(std::string_view items);
