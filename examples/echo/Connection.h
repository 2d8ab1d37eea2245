/// A TCP connection that carries PDUs, with a limit on every wait.
#pragma once

#include "Varnotix/Varnotix.h"

#include <asio.hpp>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>

/// The reason why an association ended early, as a message.
class CEchoFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reasons of an A-ABORT by the service provider (PS3.8 table 9-26).
enum EAbortReason : int
{
    ABORT_UNRECOGNIZED_PDU = 1,
    ABORT_UNEXPECTED_PDU = 2,
    ABORT_INVALID_VALUE = 6
};

/// The other side violated the protocol: the association is to be aborted with the reason.
class CProtocolFailure : public CEchoFailure
{
public:
    CProtocolFailure(EAbortReason reason, const std::string& text) : CEchoFailure(text), m_reason(reason) {}
    EAbortReason Reason() const { return m_reason; }

private:
    EAbortReason m_reason;
};

/// One connection. Every call throws CEchoFailure when the network fails or the other side takes too long.
class CConnection
{
public:
    /// The maximum length that is sent to the other side. It bounds the PDU length of a P-DATA-TF (PS3.8 Annex D.1).
    static constexpr int kMaxPduLength = 16384;
    /// The largest PDU length that is accepted in other PDUs. It bounds what the other side can make this host
    /// allocate; the 128 contexts that a request can have need far less.
    static constexpr int kMaxOtherLength = 1048576;

    explicit CConnection(std::chrono::seconds timeout) : m_timeout(timeout), m_socket(m_context) {}

    void Connect(const std::string& host, const std::string& port);

    /// Listens on a port of the loopback interface; 0 selects a free one.
    /// @return the port.
    int Listen(int port);
    /// Waits for a caller; a wait of 0 has no limit.
    /// @return false when there was no call in that time.
    bool Accept(std::chrono::seconds wait);
    void Close();

    /// Encodes and sends.
    void Send(CDcmProtocolDataUnit& pdu);
    /// Waits for one whole PDU and decodes it. Throws CProtocolFailure for an unknown PDU type and for a PDU length
    /// above the limit; the rest of such a PDU is not read.
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
