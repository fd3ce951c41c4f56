#include "tdslistener.h"

#include <QtEndian>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

enum : char { kBatch = 0x01, kAttention = 0x06, kLogin = 0x10, kPrelogin = 0x12 };

// Whole replies, one packet each. Pre-login: version 15.0.2000, encryption not supported.
constexpr char kPreloginReply[] = "0401001a0000010000000b00060100110001ff0f0007d0000002";
// Login acknowledged for TDS 7.4, packet size 4096, done.
constexpr char kLoginReply[] = "0401004800000100ad1a000174000004084c0069007300740065006e00650072000f000000e313000404"
                               "3400300039003600043400300039003600fd000000000000000000000000";
// Error kRefusal, severity 16, "Refused by the listener.", then done with its error bit.
constexpr char kRefusalReply[] = "0401006600000100aa4e00cbc30000011018005200650066007500730065006400200062007900200074"
                                 "006800650020006c0069007300740065006e00650072002e00084c0069007300740065006e00650072"
                                 "000001000000fd020000000000000000000000";
constexpr char kDoneReply[] = "0401001500000100fd000000000000000000000000";
constexpr char kCancelledReply[] = "0401001500000100fd200000000000000000000000";

// One packet's type and body; the driver's messages here fit in one packet each.
bool readPacket(int socket, char *type, QByteArray *body)
{
    char header[8];
    if (::recv(socket, header, sizeof header, MSG_WAITALL) != sizeof header)
        return false;
    *type = header[0];
    body->resize(qFromBigEndian<quint16>(header + 2) - qsizetype(sizeof header));
    return body->isEmpty() || ::recv(socket, body->data(), body->size(), MSG_WAITALL) == body->size();
}

void reply(int socket, const QByteArray &bytes)
{
    ::send(socket, bytes.constData(), bytes.size(), MSG_NOSIGNAL);
}

QString utf16(const char *bytes, qsizetype characters)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes), characters);
}

// A text of the login, named by the place of its offset and length.
QString loginText(const QByteArray &login, int field)
{
    return utf16(login.constData() + qFromLittleEndian<quint16>(login.constData() + field),
                 qFromLittleEndian<quint16>(login.constData() + field + 2));
}

// The batch's text follows its headers.
QString batchText(const QByteArray &batch)
{
    const auto headers = qFromLittleEndian<quint32>(batch.constData());
    return utf16(batch.constData() + headers, (batch.size() - headers) / 2);
}

} // namespace

TdsListener::TdsListener(Manner manner, QString refusedBatch, QString unansweredBatch)
    : m_manner(manner)
    , m_refusedBatch(std::move(refusedBatch))
    , m_unansweredBatch(std::move(unansweredBatch))
    , m_socket(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(m_socket, reinterpret_cast<sockaddr *>(&address), size);
    ::listen(m_socket, 4);
    ::getsockname(m_socket, reinterpret_cast<sockaddr *>(&address), &size);
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] {
        for (int client; (client = ::accept(m_socket, nullptr, nullptr)) >= 0; ::close(client))
            converse(client);
    });
}

TdsListener::~TdsListener()
{
    ::shutdown(m_socket, SHUT_RDWR);
    m_thread.join();
    ::close(m_socket);
}

QString TdsListener::dataSource() const
{
    return QStringLiteral("127.0.0.1,%1").arg(m_port);
}

TdsListener::Received TdsListener::received() const
{
    const std::lock_guard lock(m_mutex);
    return m_received;
}

void TdsListener::converse(int client)
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_received.connections;
    }
    char type = 0;
    QByteArray body;
    while (readPacket(client, &type, &body)) {
        if (m_manner == Manner::Garbage)
            reply(client, "HTTP/1.1 400 Bad Request\r\n\r\n");
        if (m_manner != Manner::Answering)
            continue;
        const std::lock_guard lock(m_mutex);
        if (type == kPrelogin) {
            reply(client, QByteArray::fromHex(kPreloginReply));
        } else if (type == kLogin) {
            m_received.user = loginText(body, 40);
            m_received.database = loginText(body, 68);
            reply(client, QByteArray::fromHex(kLoginReply));
        } else if (type == kAttention) {
            reply(client, QByteArray::fromHex(kCancelledReply));
        } else if (type == kBatch) {
            const QString text = batchText(body);
            m_received.batches << text;
            const auto begins = [&text](const QString &start) { return !start.isEmpty() && text.startsWith(start); };
            if (!begins(m_unansweredBatch))
                reply(client, QByteArray::fromHex(begins(m_refusedBatch) ? kRefusalReply : kDoneReply));
        }
    }
}
