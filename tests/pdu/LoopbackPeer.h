// The other side of a connection, played over the loopback interface by a test. Every wait has an end.
#pragma once

#include "Varnotix/platform/Arrays.h"

#include <asio.hpp>
#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

inline constexpr std::chrono::seconds kWait{30};

inline asio::ip::tcp::endpoint Loopback(const std::string& port)
{
    return {asio::ip::address_v4::loopback(), static_cast<std::uint16_t>(std::stoi(port))};
}

/// Sends the bytes, then reads until the other side closes.
inline CByteArray Talk(asio::ip::tcp::iostream& stream, const CByteArray& bytes)
{
    stream.write(reinterpret_cast<const char*>(bytes.GetData()), bytes.GetSize()).flush();
    CByteArray answer;
    for (std::istreambuf_iterator<char> letter(stream), end; letter != end; ++letter)
    {
        answer.Add(static_cast<BYTE>(*letter));
    }
    return answer;
}

/// Sends the bytes to a listener and returns all of its answer.
inline CByteArray CallWith(const std::string& port, const CByteArray& bytes)
{
    asio::ip::tcp::iostream caller;
    caller.expires_after(kWait);
    caller.connect(Loopback(port));
    return Talk(caller, bytes);
}

/// A listening socket that answers one caller.
class CSocketPort
{
public:
    std::string Number() const { return std::to_string(m_acceptor.local_endpoint().port()); }
    /// Waits for the first bytes of the caller, sends the answer, and reads until the caller closes.
    void AnswerOne(const CByteArray& answer)
    {
        asio::ip::tcp::iostream caller;
        m_acceptor.async_accept(caller.socket(), [](const asio::error_code&) {});
        m_context.run_for(kWait);
        caller.expires_after(kWait);
        caller.peek();
        caller.write(reinterpret_cast<const char*>(answer.GetData()), answer.GetSize()).flush();
        caller.socket().shutdown(asio::ip::tcp::socket::shutdown_send);
        Talk(caller, CByteArray());
    }

private:
    asio::io_context m_context;
    asio::ip::tcp::acceptor m_acceptor{m_context, Loopback("0")};
};

/// A port that nobody listens on just now.
inline std::string FreePort()
{
    return CSocketPort().Number();
}

/// True as soon as somebody listens on the port, as the system tells: without a connection that the listener would see,
/// and without a socket of the test's own in its way.
inline bool WaitForListener(const std::string& port)
{
    for (int attempt = 0; attempt < 400; ++attempt)
    {
        for (const char* table : {"/proc/net/tcp", "/proc/net/tcp6"})
        {
            std::ifstream sockets(table);
            std::string number;
            std::string local;
            std::string remote;
            std::string state;
            for (std::string line; std::getline(sockets, line);)
            {
                std::istringstream(line) >> number >> local >> remote >> state;
                if (state == "0A" && std::stoi(local.substr(local.find(':') + 1), nullptr, 16) == std::stoi(port))
                {
                    return true;
                }
            }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}
