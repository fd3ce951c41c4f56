#include "tdslistener.h"

#include <QtEndian>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>

namespace {

enum : char { kBatch = 0x01, kReply = 0x04, kAttention = 0x06, kLogin = 0x10, kPrelogin = 0x12 };
constexpr int kHeaderSize = 8;

bool readExactly(int socket, char *into, qsizetype size)
{
    for (qsizetype done = 0; done < size;) {
        const ssize_t got = ::recv(socket, into + done, size - done, 0);
        if (got <= 0)
            return false;
        done += got;
    }
    return true;
}

struct Message
{
    char type = 0;
    QByteArray payload;
};

// One message, joined from its packets.
std::optional<Message> readMessage(int socket)
{
    Message message;
    for (;;) {
        char header[kHeaderSize];
        if (!readExactly(socket, header, kHeaderSize))
            return std::nullopt;
        message.type = header[0];
        QByteArray body(qFromBigEndian<quint16>(header + 2) - kHeaderSize, '\0');
        if (!readExactly(socket, body.data(), body.size()))
            return std::nullopt;
        message.payload += body;
        if (header[1] & 1) // the last packet of the message
            return message;
    }
}

void sendBytes(int socket, const QByteArray &bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t sent = ::send(socket, bytes.constData() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (sent <= 0)
            return;
        done += sent;
    }
}

void sendReply(int socket, const QByteArray &payload)
{
    QByteArray header(kHeaderSize, '\0');
    header[0] = kReply;
    header[1] = 1;
    qToBigEndian<quint16>(quint16(kHeaderSize + payload.size()), header.data() + 2);
    header[6] = 1;
    sendBytes(socket, header + payload);
}

QByteArray littleEndian(quint32 value, int size)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes.left(size);
}

QByteArray utf16(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

QByteArray shortText(const QString &text)
{
    return char(text.size()) + utf16(text);
}

QByteArray token(char type, const QByteArray &body)
{
    return type + littleEndian(body.size(), 2) + body;
}

QByteArray done(quint16 status)
{
    return char(0xFD) + littleEndian(status, 2) + littleEndian(0, 2) + QByteArray(8, '\0');
}

// Version 15.0.2000, then encryption not supported.
QByteArray preloginReply()
{
    return QByteArray::fromHex("00000b00060100110001ff0f0007d0000002");
}

QByteArray loginReply()
{
    const QByteArray acknowledged = char(1) + QByteArray::fromHex("74000004") + shortText(QStringLiteral("Listener"))
        + QByteArray::fromHex("0f000000");
    const QByteArray packetSize = char(4) + shortText(QStringLiteral("4096")) + shortText(QStringLiteral("4096"));
    return token(char(0xAD), acknowledged) + token(char(0xE3), packetSize) + done(0);
}

QByteArray refusal()
{
    const QString message = QStringLiteral("Refused by the listener.");
    const QByteArray error = littleEndian(TdsListener::kRefusal, 4) + char(1) + char(16)
        + littleEndian(message.size(), 2) + utf16(message) + shortText(QStringLiteral("Listener")) + shortText(QString())
        + littleEndian(1, 4);
    return token(char(0xAA), error) + done(2);
}

// A text of the login, named by its offset and length in characters.
QString loginText(const QByteArray &login, int field)
{
    const auto offset = qFromLittleEndian<quint16>(login.constData() + field);
    const auto length = qFromLittleEndian<quint16>(login.constData() + field + 2);
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(login.constData() + offset), length);
}

QString batchText(const QByteArray &batch)
{
    const auto headers = qFromLittleEndian<quint32>(batch.constData());
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(batch.constData() + headers),
                              (batch.size() - headers) / 2);
}

} // namespace

TdsListener::TdsListener()
    : TdsListener(Answers())
{
}

TdsListener::TdsListener(Answers answers)
    : m_answers(std::move(answers))
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
    m_thread = std::thread([this] { serve(); });
}

TdsListener::~TdsListener()
{
    {
        QMutexLocker lock(&m_mutex);
        m_stopping = true;
        if (m_client >= 0)
            ::shutdown(m_client, SHUT_RDWR);
    }
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
    QMutexLocker lock(&m_mutex);
    return m_received;
}

void TdsListener::serve()
{
    for (;;) {
        const int client = ::accept(m_socket, nullptr, nullptr);
        if (client < 0)
            return;
        bool serving = false;
        {
            QMutexLocker lock(&m_mutex);
            ++m_received.connections;
            serving = !m_stopping;
            m_client = serving ? client : -1;
        }
        if (serving)
            converse(client);
        {
            QMutexLocker lock(&m_mutex);
            m_client = -1;
        }
        ::close(client);
    }
}

void TdsListener::converse(int client)
{
    while (const std::optional<Message> message = readMessage(client)) {
        if (m_answers.manner == Manner::Silent)
            continue;
        if (m_answers.manner == Manner::Garbage) {
            sendBytes(client, "HTTP/1.1 400 Bad Request\r\n\r\n");
            continue;
        }
        QMutexLocker lock(&m_mutex);
        if (message->type == kPrelogin) {
            sendReply(client, preloginReply());
        } else if (message->type == kLogin) {
            m_received.user = loginText(message->payload, 40);
            m_received.serverName = loginText(message->payload, 52);
            m_received.database = loginText(message->payload, 68);
            sendReply(client, loginReply());
        } else if (message->type == kAttention) {
            sendReply(client, done(0x20)); // the cancel acknowledged
        } else if (message->type == kBatch) {
            const QString text = batchText(message->payload);
            m_received.batches << text;
            if (!m_answers.unansweredBatch.isEmpty() && text.startsWith(m_answers.unansweredBatch))
                continue;
            const bool refused = !m_answers.refusedBatch.isEmpty() && text.startsWith(m_answers.refusedBatch);
            sendReply(client, refused ? refusal() : done(0));
        }
    }
}
