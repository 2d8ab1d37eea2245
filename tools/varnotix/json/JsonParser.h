/// JSON documents as a sequence of events.
#pragma once

#include "Varnotix/Varnotix.h"

#include <stdexcept>
#include <string>
#include <string_view>

/// A document is not what it should be; the text says why.
class CJsonFault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Receives the parts of a document in their order. Its functions may throw CJsonFault.
class IJsonEvents
{
public:
    virtual ~IJsonEvents() = default;

    virtual void Null() = 0;
    /// @param spelling as the document has it, but for integers, which have no leading zeros.
    virtual void Number(std::string spelling) = 0;
    virtual void Text(std::string text) = 0;
    virtual void BeginObject() = 0;
    virtual void Key(const std::string& name) = 0;
    virtual void EndObject() = 0;
    virtual void BeginArray() = 0;
    virtual void EndArray() = 0;
};

/// Reads a document. Throws CJsonFault, also for one that is not JSON.
void ParseJson(std::string_view json, IJsonEvents& events);
