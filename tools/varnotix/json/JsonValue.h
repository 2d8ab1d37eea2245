/// Values of attributes in JSON, and as the bytes of a stream.
#pragma once

#include "json/JsonParser.h"

#include <array>
#include <vector>

/// One value of an attribute.
struct SJsonValue
{
    enum class EKind
    {
        Null,
        Number, ///< The text is its spelling.
        Text,
        Name, ///< The groups of a name, in the text.
        Item
    };

    EKind kind = EKind::Null;
    std::string text = {};
};

/// The bytes of a value field in little endian; texts in UTF-8. Throws CJsonFault for values that the VR cannot have.
std::string BytesOfValues(const std::string& vr, const std::vector<SJsonValue>& values);
