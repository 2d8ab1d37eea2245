// The value of an element as the bytes of a stream, with nothing lost that was read.

#include "Varnotix/element/DcmElement.h"
#include "Varnotix/element/TypedValue.h"

#include <type_traits>

namespace
{

constexpr char kSeparator = '\\';

std::string Joined(const CStringArray& texts)
{
    std::string joined;
    for (int i = 0; i < texts.GetSize(); ++i)
    {
        if (i > 0)
        {
            joined += kSeparator;
        }
        joined += texts[i].View();
    }
    return joined;
}

/// True when the texts are what the bytes were split into. A separator at the very end opens no further text.
bool IsSplitOf(const std::string& joined, std::string_view raw)
{
    return joined == raw || (raw.size() == joined.size() + 1 && raw.back() == kSeparator && raw.starts_with(joined));
}

/// The raw bytes where the numbers were built from them, so that a partial last number is kept; otherwise the numbers.
template <class ARRAY>
CValueBytes NumberBytes(const ARRAY& numbers, std::string_view raw)
{
    constexpr std::size_t kWidth = sizeof(*numbers.GetData());
    const std::string_view bytes(reinterpret_cast<const char*>(numbers.GetData()),
                                 static_cast<std::size_t>(numbers.GetSize()) * kWidth);
    const bool fromRaw = !raw.empty() && raw.size() / kWidth * kWidth == bytes.size() && raw.starts_with(bytes);
    return CValueBytes(fromRaw ? raw : bytes);
}

} // namespace

CValueBytes CDcmElement::BuiltValueBytes() const
{
    const EVrKind kind = Varnotix::VrKind(m_vr);
    if (kind == EVrKind::RawOnly)
    {
        return CValueBytes(m_raw.Text());
    }
    if (!m_typed)
    {
        return {};
    }
    if (m_typed->otherWordBytes && IsEmptyValue())
    {
        const CByteArray& bytes = *m_typed->otherWordBytes;
        return CValueBytes(std::string_view(reinterpret_cast<const char*>(bytes.GetData()),
                                            static_cast<std::size_t>(bytes.GetSize())));
    }
    const std::string_view raw = m_raw.Text();
    return std::visit(
        [&](const auto& values) -> CValueBytes
        {
            using Values = std::decay_t<decltype(values)>;
            if constexpr (std::is_same_v<Values, std::monostate>)
            {
                return {};
            }
            else if constexpr (std::is_same_v<Values, CStringArray>)
            {
                std::string joined = Joined(values);
                return IsSplitOf(joined, raw) ? CValueBytes(raw) : CValueBytes(std::move(joined));
            }
            else
            {
                // An odd last byte of OW was built into a word of its own.
                const bool oddWords = kind == EVrKind::OtherWords && raw.size() % 2 == 1;
                if (oddWords && std::string_view(reinterpret_cast<const char*>(values.GetData()),
                                                 static_cast<std::size_t>(values.GetSize()) *
                                                     sizeof(*values.GetData())) == std::string(raw) + '\0')
                {
                    return CValueBytes(raw);
                }
                return NumberBytes(values, raw);
            }
        },
        m_typed->values);
}
