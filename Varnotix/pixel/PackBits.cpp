#include "Varnotix/pixel/PackBits.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace Varnotix
{

namespace
{

static_assert(std::endian::native == std::endian::little, "the first byte of a word is its lowest");

using Word = std::uint64_t;
constexpr std::size_t kWordSize = sizeof(Word);
constexpr Word kEachByte = 0x0101010101010101U;
constexpr Word kHighBits = 0x8080808080808080U;

Word WordAt(const BYTE* bytes)
{
    Word word = 0;
    std::memcpy(&word, bytes, kWordSize);
    return word;
}

/// Length of the run that the first byte begins.
std::size_t CountEqual(const BYTE* begin, const BYTE* end)
{
    const Word pattern = *begin * kEachByte;
    const BYTE* next = begin + 1;
    while (static_cast<std::size_t>(end - next) >= kWordSize)
    {
        const Word differing = WordAt(next) ^ pattern;
        if (differing != 0)
        {
            return static_cast<std::size_t>(next - begin) + static_cast<std::size_t>(std::countr_zero(differing)) / 8;
        }
        next += kWordSize;
    }
    return static_cast<std::size_t>(std::find_if(next, end, [=](BYTE byte) { return byte != *begin; }) - begin);
}

/// Number of bytes before the first that equals the next one.
std::size_t CountSingle(const BYTE* begin, const BYTE* end)
{
    const BYTE* next = begin;
    while (static_cast<std::size_t>(end - next) > kWordSize)
    {
        // A byte of the difference is zero where two neighbours are equal; the lowest such byte is found exactly.
        const Word difference = WordAt(next) ^ WordAt(next + 1);
        const Word zeros = (difference - kEachByte) & ~difference & kHighBits;
        if (zeros != 0)
        {
            return static_cast<std::size_t>(next - begin) + static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
        }
        next += kWordSize;
    }
    return static_cast<std::size_t>(std::adjacent_find(next, end) - begin);
}

constexpr std::size_t kLongestRun = 128;
constexpr BYTE kLongestRunControl = 0x81; // -127
constexpr BYTE kRunOfTwo = 0xFF;          // -1
constexpr BYTE kFullLiteral = 127;
constexpr std::size_t kRoomForStep = 3;

/// The encoder's state machine: what was written last decides how the next bytes join it.
class CPackBitsEncoder
{
public:
    explicit CPackBitsEncoder(std::size_t room) : m_room(room), m_bytes(room + kSlack) {}

    /// Takes a run of equal bytes.
    void Take(BYTE byte, std::size_t count)
    {
        while (Step(byte, count))
        {
        }
    }

    /// Takes bytes none of which equals its neighbours.
    void TakeSingle(const BYTE* bytes, std::size_t count)
    {
        while (count > 0)
        {
            std::size_t taken = 1;
            if (m_state == EState::Literal && m_end + kRoomForStep <= m_room)
            {
                BYTE& control = m_bytes[m_literal];
                taken = std::min({count, std::size_t{kFullLiteral} - control, m_room - m_end - (kRoomForStep - 1)});
                std::memcpy(m_bytes.data() + m_end, bytes, taken);
                m_end += taken;
                control = static_cast<BYTE>(control + taken);
                m_state = control == kFullLiteral ? EState::Base : EState::Literal;
            }
            else
            {
                Take(*bytes, 1);
            }
            bytes += taken;
            count -= taken;
        }
    }

    std::vector<BYTE> Result()
    {
        m_bytes.resize(m_passed + m_end);
        return std::move(m_bytes);
    }

private:
    enum class EState
    {
        Base,
        Literal,
        Run,
        LiteralRun
    };

    // An open literal may grow past the room before the encoder can go back to the start.
    static constexpr std::size_t kSlack = 2 * kLongestRun + kRoomForStep;

    void Put(BYTE byte) { m_bytes[m_end++] = byte; }

    void MakeRoom()
    {
        if (m_end + kRoomForStep <= m_room)
        {
            return;
        }
        std::size_t kept = m_end;
        if (m_state == EState::Literal || m_state == EState::LiteralRun)
        {
            kept = m_literal;
            m_literal = 0;
        }
        std::copy(m_bytes.begin() + static_cast<std::ptrdiff_t>(kept),
                  m_bytes.begin() + static_cast<std::ptrdiff_t>(m_end), m_bytes.begin());
        m_passed += kept;
        m_end -= kept;
    }

    void PutRun(BYTE byte, std::size_t count)
    {
        Put(static_cast<BYTE>(1 - static_cast<int>(count)));
        Put(byte);
    }

    /// @return true when the rest of the bytes is to be decided again; count is then that rest.
    bool Step(BYTE byte, std::size_t& count)
    {
        MakeRoom();
        if (m_state == EState::LiteralRun)
        {
            JoinOrEndRun(count);
            return true;
        }
        if (count > 1)
        {
            m_state = m_state == EState::Literal ? EState::LiteralRun : EState::Run;
            if (count > kLongestRun)
            {
                Put(kLongestRunControl);
                Put(byte);
                count -= kLongestRun;
                return true;
            }
            PutRun(byte, count);
        }
        else if (m_state == EState::Literal)
        {
            Put(byte);
            if (++m_bytes[m_literal] == kFullLiteral)
            {
                m_state = EState::Base;
            }
        }
        else
        {
            m_literal = m_end;
            Put(0);
            Put(byte);
            m_state = EState::Literal;
        }
        return false;
    }

    /// A run of two between single bytes costs nothing as part of the literal: it is folded into it.
    void JoinOrEndRun(std::size_t nextCount)
    {
        BYTE& control = m_bytes[m_end - 2];
        BYTE& literal = m_bytes[m_literal];
        if (nextCount != 1 || control != kRunOfTwo || literal >= kFullLiteral - 1)
        {
            m_state = EState::Run;
            return;
        }
        control = m_bytes[m_end - 1];
        literal = static_cast<BYTE>(literal + 2);
        m_state = literal == kFullLiteral ? EState::Base : EState::Literal;
    }

    std::size_t m_room;
    std::vector<BYTE> m_bytes;
    std::size_t m_end = 0;
    std::size_t m_passed = 0;
    std::size_t m_literal = 0; // Position of the open literal's control byte.
    EState m_state = EState::Base;
};

} // namespace

bool DecodePackBits(std::span<const BYTE> input, std::size_t segmentSize, BYTE* output, std::size_t capacity,
                    std::size_t stride)
{
    std::size_t cursor = 0;
    std::size_t written = 0;
    while (cursor < segmentSize && cursor < input.size() && written < capacity)
    {
        // A control byte has a sign. NOLINTNEXTLINE(bugprone-signed-char-misuse)
        const int control = static_cast<signed char>(input[cursor++]);
        const std::size_t room = capacity - written;
        if (control >= 0)
        {
            const std::size_t count = std::min({static_cast<std::size_t>(control) + 1, room, input.size() - cursor});
            if (stride == 1)
            {
                std::memcpy(output + written, input.data() + cursor, count);
            }
            else
            {
                for (std::size_t i = 0; i < count; ++i)
                {
                    output[(written + i) * stride] = input[cursor + i];
                }
            }
            cursor += count;
            written += count;
        }
        else if (control != -static_cast<int>(kLongestRun) && cursor < input.size())
        {
            const std::size_t count = std::min(static_cast<std::size_t>(1 - control), room);
            const BYTE byte = input[cursor++];
            if (stride == 1)
            {
                std::memset(output + written, byte, count);
            }
            else
            {
                for (std::size_t i = 0; i < count; ++i)
                {
                    output[(written + i) * stride] = byte;
                }
            }
            written += count;
        }
    }
    return written == capacity;
}

std::vector<BYTE> EncodePackBits(std::span<const BYTE> input)
{
    CPackBitsEncoder encoder(input.size());
    const BYTE* next = input.data();
    const BYTE* const end = next + input.size();
    while (next != end)
    {
        const std::size_t single = CountSingle(next, end);
        encoder.TakeSingle(next, single);
        next += single;
        if (next != end)
        {
            const std::size_t equal = CountEqual(next, end);
            encoder.Take(*next, equal);
            next += equal;
        }
    }
    return encoder.Result();
}

} // namespace Varnotix
