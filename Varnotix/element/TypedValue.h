/// The typed values of an element, allocated for the kind that its VR holds.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <memory>
#include <variant>

struct STypedValue
{
    std::variant<std::monostate, CStringArray, CWordArray, CUIntArray, CFloatArray, CDoubleArray, CByteArray> values;

    /// Bytes handed to an OW element. They are kept beside its words; only the words are encoded.
    std::unique_ptr<CByteArray> otherWordBytes;

    STypedValue() = default;
    STypedValue(const STypedValue& other)
        : values(other.values),
          otherWordBytes(other.otherWordBytes ? std::make_unique<CByteArray>(*other.otherWordBytes) : nullptr)
    {
    }
    STypedValue& operator=(const STypedValue&) = delete;

    /// The array of one kind; made on first use.
    template <class ARRAY>
    ARRAY& Of()
    {
        if (!std::holds_alternative<ARRAY>(values))
        {
            values.template emplace<ARRAY>();
        }
        return std::get<ARRAY>(values);
    }
};
