#include "Varnotix/pixel/PackBits.h"

#include <algorithm>

namespace
{

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

    /// Takes the next byte and how often it stands in a row.
    void Take(BYTE byte, std::size_t count)
    {
        while (Step(byte, count))
        {
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
    std::size_t m_literal = 0; // Where the open literal's control byte stands.
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
        const int control = static_cast<signed char>(input[cursor++]);
        const std::size_t room = capacity - written;
        if (control >= 0)
        {
            const std::size_t count = std::min({static_cast<std::size_t>(control) + 1, room, input.size() - cursor});
            for (std::size_t i = 0; i < count; ++i)
            {
                output[(written + i) * stride] = input[cursor + i];
            }
            cursor += count;
            written += count;
        }
        else if (control != -static_cast<int>(kLongestRun) && cursor < input.size())
        {
            const std::size_t count = std::min(static_cast<std::size_t>(1 - control), room);
            const BYTE byte = input[cursor++];
            for (std::size_t i = 0; i < count; ++i)
            {
                output[(written + i) * stride] = byte;
            }
            written += count;
        }
    }
    return written == capacity;
}

std::vector<BYTE> EncodePackBits(std::span<const BYTE> input)
{
    CPackBitsEncoder encoder(input.size());
    for (std::size_t i = 0; i < input.size();)
    {
        std::size_t count = 1;
        while (i + count < input.size() && input[i + count] == input[i])
        {
            ++count;
        }
        encoder.Take(input[i], count);
        i += count;
    }
    return encoder.Result();
}
