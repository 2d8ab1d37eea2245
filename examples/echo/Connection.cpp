#include "Connection.h"

#include <array>
#include <cstdint>

using asio::ip::tcp;

namespace
{

constexpr std::size_t kHeaderSize = 6;

[[noreturn]] void Fail(const std::string& what, const asio::error_code& error)
{
    if (error == asio::error::timed_out)
    {
        throw CEchoFailure(what + ": no answer in time");
    }
    throw CEchoFailure(what + ": " + error.message());
}

} // namespace

/// Runs one operation to its end. One that takes longer than the limit is cancelled and returns timed_out.
asio::error_code CConnection::Await(std::chrono::seconds limit, const std::function<void()>& cancel,
                                    const std::function<void(CompletionHandler)>& start)
{
    asio::error_code result = asio::error::would_block;
    start([&result](asio::error_code error, std::size_t) { result = error; });
    m_context.restart();
    if (limit == std::chrono::seconds(0))
    {
        m_context.run();
        return result;
    }
    m_context.run_for(limit);
    if (!m_context.stopped())
    {
        cancel();
        m_context.run();
        result = asio::error::timed_out;
    }
    return result;
}

asio::error_code CConnection::AwaitSocket(const std::function<void(CompletionHandler)>& start)
{
    return Await(
        m_timeout, [this] { Close(); }, start);
}

void CConnection::Connect(const std::string& host, const std::string& port)
{
    asio::error_code error;
    const tcp::resolver::results_type places = tcp::resolver(m_context).resolve(host, port, error);
    if (!error)
    {
        error = AwaitSocket(
            [&](const CompletionHandler& done) {
                asio::async_connect(m_socket, places,
                                    [done](asio::error_code result, const tcp::endpoint&) { done(result, 0); });
            });
    }
    if (error)
    {
        Fail("cannot connect to " + host + " port " + port, error);
    }
}

int CConnection::Listen(int port)
{
    const tcp::endpoint place(asio::ip::address_v4::loopback(), static_cast<std::uint16_t>(port));
    asio::error_code error;
    m_acceptor.open(place.protocol(), error);
#if !defined(_WIN32)
    // Lets a new run use the port while connections of an earlier one are in TIME_WAIT. On Windows the option would let
    // two programs share the port.
    if (!error)
    {
        m_acceptor.set_option(tcp::acceptor::reuse_address(true), error);
    }
#endif
    if (!error)
    {
        m_acceptor.bind(place, error);
    }
    if (!error)
    {
        m_acceptor.listen(asio::socket_base::max_listen_connections, error);
    }
    if (error)
    {
        Fail("cannot listen on port " + std::to_string(port), error);
    }
    return m_acceptor.local_endpoint().port();
}

bool CConnection::Accept(std::chrono::seconds wait)
{
    Close();
    const asio::error_code error = Await(
        wait, [this] { m_acceptor.cancel(); },
        [this](const CompletionHandler& done)
        { m_acceptor.async_accept(m_socket, [done](asio::error_code result) { done(result, 0); }); });
    if (error && error != asio::error::timed_out)
    {
        Fail("cannot accept a connection", error);
    }
    return !error;
}

void CConnection::Close()
{
    asio::error_code ignored;
    m_socket.close(ignored);
}

void CConnection::Send(CDcmProtocolDataUnit& pdu)
{
    pdu.Create();
    CByteArray bytes;
    pdu.PduField(bytes);
    const asio::const_buffer buffer(bytes.GetData(), static_cast<std::size_t>(bytes.GetSize()));
    const asio::error_code error =
        AwaitSocket([&](const CompletionHandler& done) { asio::async_write(m_socket, buffer, done); });
    if (error)
    {
        Fail(std::string("cannot send ") + Varnotix::PduTypeName(pdu.PduType()), error);
    }
}

bool CConnection::Receive(CDcmProtocolDataUnit& pdu)
{
    std::array<BYTE, kHeaderSize> header{};
    std::size_t count = 0;
    asio::error_code error = AwaitSocket(
        [&](const CompletionHandler& done)
        {
            asio::async_read(m_socket, asio::buffer(header),
                             [&count, done](asio::error_code result, std::size_t read)
                             {
                                 count = read;
                                 done(result, read);
                             });
        });
    if (error == asio::error::eof && count == 0)
    {
        return false;
    }
    if (error)
    {
        Fail("cannot receive the start of a PDU", error);
    }

    // The length of a PDU of unknown type means nothing.
    const int type = header[0];
    if (type < Varnotix::PDU_ASSOCIATE_RQ || type > Varnotix::PDU_ABORT)
    {
        throw CProtocolFailure(ABORT_UNRECOGNIZED_PDU, "PDU of unknown type " + std::to_string(type));
    }
    // The library accepts every length; the host limits what it allocates for the other side.
    const std::uint32_t length = static_cast<std::uint32_t>(header[2]) << 24U |
                                 static_cast<std::uint32_t>(header[3]) << 16U |
                                 static_cast<std::uint32_t>(header[4]) << 8U | header[5];
    const int limit = type == Varnotix::PDU_DATA_TF ? kMaxPduLength : kMaxOtherLength;
    if (length > static_cast<std::uint32_t>(limit))
    {
        throw CProtocolFailure(ABORT_INVALID_VALUE, Varnotix::PduTypeName(type) + (" of " + std::to_string(length)) +
                                                        " bytes exceeds the limit of " + std::to_string(limit));
    }
    CByteArray bytes;
    bytes.Assign(header.data(), static_cast<int>(header.size()));
    bytes.SetSize(static_cast<int>(kHeaderSize + length));
    error = AwaitSocket([&](const CompletionHandler& done)
                        { asio::async_read(m_socket, asio::buffer(bytes.GetData() + kHeaderSize, length), done); });
    if (error)
    {
        Fail("cannot receive the rest of a PDU", error);
    }
    pdu.Create(bytes);
    return true;
}
