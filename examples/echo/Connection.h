/// A TCP connection that carries PDUs, with a limit on every wait.
#pragma once

#include "Varnotix/Varnotix.h"

#include <asio.hpp>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>

/// What ended an association before its time; the text is for people.
class CEchoFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// One connection. Every call throws CEchoFailure when the network fails or the other side takes too long.
class CConnection
{
public:
    /// The largest PDU that is taken, without its header. It bounds what a peer can make us allocate.
    static constexpr int kMaxPduLength = 16384;

    explicit CConnection(std::chrono::seconds timeout) : m_timeout(timeout), m_socket(m_context) {}

    void Connect(const std::string& host, const std::string& port);

    /// Takes a free port of the loopback interface for 0, and returns the port.
    int Listen(int port);
    /// Waits for a caller; false when nobody called for so long. A wait of 0 has no end.
    bool Accept(std::chrono::seconds wait);
    void Close();

    /// Encodes and sends.
    void Send(CDcmProtocolDataUnit& pdu);
    /// Waits for one whole PDU and decodes it.
    /// @return false when the other side closed the connection between two PDUs.
    bool Receive(CDcmProtocolDataUnit& pdu);

private:
    using CompletionHandler = std::function<void(asio::error_code, std::size_t)>;

    asio::error_code Await(std::chrono::seconds limit, const std::function<void()>& cancel,
                           const std::function<void(CompletionHandler)>& start);
    asio::error_code AwaitSocket(const std::function<void(CompletionHandler)>& start);

    std::chrono::seconds m_timeout;
    asio::io_context m_context;
    asio::ip::tcp::socket m_socket;
    asio::ip::tcp::acceptor m_acceptor{m_context};
};
