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

/// A VR of two letters.
struct SJsonVr
{
    int code; ///< See EVr.
    Varnotix::ELaterVr laterVr;
};

/// Throws CJsonFault for letters that are not a VR.
SJsonVr VrOfLetters(const std::string& letters);

/// The VR that the dictionary gives a tag; UN for one that it lacks.
std::string VrOfDictionary(DWORD tag);

/// The bytes of a value field in little endian; texts in UTF-8. Throws CJsonFault for values that the VR cannot have.
std::string BytesOfValues(const std::string& vr, const std::vector<SJsonValue>& values);
