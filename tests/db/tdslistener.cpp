#include "tdslistener.h"

#include "tdssocket.h"

#include <QtEndian>

#include <algorithm>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

enum : char { kBatch = 0x01, kAttention = 0x06, kTransactionManager = 0x0e, kLogin = 0x10, kPrelogin = 0x12 };
// What a transaction manager request asks, and the change the reply tells.
enum : quint16 { kBeginTransaction = 5, kCommitTransaction = 7, kRollbackTransaction = 8 };
enum : char { kTransactionBegun = 8, kTransactionCommitted = 9, kTransactionRolledBack = 10 };

// Whole replies, one packet each. Pre-login: version 15.0.2000, then the
// encryption byte: required (all of the session) or not supported.
constexpr char kPreloginReply[] = "0401001a0000010000000b00060100110001ff0f0007d00000";
enum : char { kEncryptNotSupported = 2, kEncryptRequired = 3 };
// The packet size agreed at login: 4096.
constexpr char kPacketSize[] = "e3130004043400300039003600043400300039003600";
constexpr char kDone[] = "fd000000000000000000000000";
constexpr char kDoneWithError[] = "fd020000000000000000000000";
constexpr char kCancelled[] = "fd200000000000000000000000";

QByteArray utf16Bytes(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

// A token with its two-byte length before its body.
QByteArray token(char type, const QByteArray &body)
{
    char length[2];
    qToLittleEndian<quint16>(quint16(body.size()), length);
    return type + QByteArray(length, 2) + body;
}

// An error of severity 16 from the server "Listener", then done with its error bit.
QByteArray errorTokens(const TdsListener::Error &error)
{
    char number[4], textLength[2];
    qToLittleEndian<qint32>(error.number, number);
    qToLittleEndian<quint16>(quint16(error.message.size()), textLength);
    const QByteArray server = utf16Bytes(QStringLiteral("Listener"));
    return token(char(0xaa), QByteArray(number, 4) + "\x01\x10" + QByteArray(textLength, 2) + utf16Bytes(error.message)
                                 + char(server.size() / 2) + server + QByteArray("\0\1\0\0\0", 5))
        + QByteArray::fromHex(kDoneWithError);
}

// Login acknowledged for TDS 7.4 by a server naming itself as SQL Server
// does, version 15; the driver gives that name as the engine's.
QByteArray loginAck()
{
    const QString product = QStringLiteral("Microsoft SQL Server");
    return token(char(0xad), QByteArray::fromHex("0174000004") + char(product.size()) + utf16Bytes(product)
                                 + QByteArray::fromHex("0f000000"))
        + QByteArray::fromHex(kPacketSize);
}

// The database the login landed in, as the server tells it.
QByteArray databaseChange(const QString &database)
{
    return token(char(0xe3), QByteArray(1, '\x01') + char(database.size()) + utf16Bytes(database) + QByteArray(1, '\0'));
}

// The reply to a transaction manager request: the transaction it began or
// ended, always the same one, as the server tells it.
QByteArray transactionChange(quint16 request)
{
    const QByteArray descriptor = QByteArray(1, '\x08') + QByteArray::fromHex("0100000000000000");
    const QByteArray none(1, '\0');
    switch (request) {
    case kBeginTransaction:
        return token(char(0xe3), kTransactionBegun + descriptor + none);
    case kCommitTransaction:
        return token(char(0xe3), kTransactionCommitted + none + descriptor);
    case kRollbackTransaction:
        return token(char(0xe3), kTransactionRolledBack + none + descriptor);
    }
    return QByteArray();
}

// A result set of one nvarchar column, then done with its count.
QByteArray rowTokens(const QStringList &values, const QString &column = QStringLiteral("name"))
{
    const QByteArray name = utf16Bytes(column);
    QByteArray tokens = QByteArray::fromHex("8101000000000001" "00e700010904d00034") + char(name.size() / 2) + name;
    for (const QString &value : values) {
        char length[2];
        qToLittleEndian<quint16>(quint16(value.size() * 2), length);
        tokens += '\xd1' + QByteArray(length, 2) + utf16Bytes(value);
    }
    char count[8];
    qToLittleEndian<quint64>(quint64(values.size()), count);
    return tokens + QByteArray::fromHex("fd1000c100") + QByteArray(count, 8);
}

// The tokens as one reply packet.
QByteArray packet(const QByteArray &tokens)
{
    QByteArray header = QByteArray::fromHex("0401000000000100");
    qToBigEndian<quint16>(quint16(header.size() + tokens.size()), header.data() + 2);
    return header + tokens;
}

// One packet's type and body; the driver's messages here fit in one packet each.
bool readPacket(TdsSocket &socket, char *type, QByteArray *body)
{
    char header[8];
    if (!socket.read(header, sizeof header))
        return false;
    *type = header[0];
    body->resize(qFromBigEndian<quint16>(header + 2) - qsizetype(sizeof header));
    return socket.read(body->data(), body->size());
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

TdsListener::TdsListener()
    : TdsListener(Script{})
{
}

TdsListener::TdsListener(Script script)
    : m_script(std::move(script))
    , m_socket(::socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(m_socket, reinterpret_cast<sockaddr *>(&address), size);
    ::listen(m_socket, 64);
    ::getsockname(m_socket, reinterpret_cast<sockaddr *>(&address), &size);
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] {
        for (int client; (client = ::accept(m_socket, nullptr, nullptr)) >= 0;) {
            m_clients.emplace_back([this, client] {
                TdsSocket socket(client);
                converse(socket);
                ::close(client);
            });
        }
    });
}

TdsListener::~TdsListener()
{
    ::shutdown(m_socket, SHUT_RDWR);
    m_thread.join();
    for (std::thread &client : m_clients)
        client.join();
    ::close(m_socket);
}

QString TdsListener::dataSource() const
{
    return QStringLiteral("127.0.0.1,%1").arg(m_port);
}

TdsListener::Received TdsListener::received() const
{
    const std::lock_guard lock(m_mutex);
    Received received = m_received;
    std::vector<std::pair<int, int>> changes; // (batch number, +1 at a first batch, -1 after a last)
    for (const auto &[first, last] : m_spans) {
        changes.emplace_back(first, 1);
        changes.emplace_back(last, -1);
    }
    std::sort(changes.begin(), changes.end(), [](const auto &a, const auto &b) {
        return a.first != b.first ? a.first < b.first : a.second > b.second;
    });
    int atOnce = 0;
    for (const auto &[number, change] : changes)
        received.mostAtOnce = std::max(received.mostAtOnce, atOnce += change);
    return received;
}

void TdsListener::converse(TdsSocket &client)
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_received.connections;
    }
    std::optional<size_t> span;
    char type = 0;
    QByteArray body;
    while (readPacket(client, &type, &body)) {
        if (m_script.manner == Manner::Garbage)
            client.write("HTTP/1.1 400 Bad Request\r\n\r\n");
        if (m_script.manner != Manner::Answering)
            continue;
        if (type == kBatch && m_script.batchTime.count() > 0)
            std::this_thread::sleep_for(m_script.batchTime); // the server at work, not the listener waiting on a test
        const std::lock_guard lock(m_mutex);
        if (type == kPrelogin) {
            const bool offered = !m_script.certificate.isEmpty();
            client.write(QByteArray::fromHex(kPreloginReply) + (offered ? kEncryptRequired : kEncryptNotSupported));
            if (offered && !client.handshake(m_script.certificate, m_script.key))
                return;
        } else if (type == kLogin) {
            m_received.encrypted += client.encrypted() ? 1 : 0;
            m_received.user = loginText(body, 40);
            m_received.database = loginText(body, 68);
            m_received.logins << m_received.database;
            if (m_script.loginError)
                client.write(packet(errorTokens(*m_script.loginError)));
            else
                client.write(packet((m_script.landsIn.isEmpty() ? QByteArray() : databaseChange(m_script.landsIn))
                                    + loginAck() + QByteArray::fromHex(kDone)));
        } else if (type == kTransactionManager) {
            const quint16 request = qFromLittleEndian<quint16>(body.constData() + qFromLittleEndian<quint32>(body.constData()));
            m_received.transactionRequests << request;
            if (m_script.answersTransactions)
                client.write(packet(transactionChange(request) + QByteArray::fromHex(kDone)));
        } else if (type == kAttention) {
            client.write(packet(QByteArray::fromHex(kCancelled)));
        } else if (type == kBatch) {
            const QString text = batchText(body);
            const int number = ++m_received.batchCount;
            if (!span) {
                span = m_spans.size();
                m_spans.emplace_back(number, number);
            }
            m_spans[*span].second = number;
            if (m_script.keepsBatches)
                m_received.batches << text;
            const auto begins = [&text](const QString &start) { return !start.isEmpty() && text.startsWith(start); };
            if (begins(m_script.hangUpBatch))
                return;
            QByteArray answer = QByteArray::fromHex(kDone);
            for (auto rows = m_script.rows.cbegin(); rows != m_script.rows.cend(); ++rows) {
                if (begins(rows.key()))
                    answer = rowTokens(rows.value());
            }
            if (text.contains(QLatin1String("sp_getapplock")))
                answer = rowTokens({QString::number(m_script.appLockAnswer)}, QStringLiteral("granted"));
            if (begins(m_script.refusedBatch))
                answer = errorTokens({kRefusal, QStringLiteral("Refused by the listener.")});
            if (begins(m_script.blockedBatch) && m_blocked < m_script.blockedTimes) {
                ++m_blocked;
                answer = errorTokens({kLockRequestTimedOut, QStringLiteral("Lock request time out period exceeded.")});
            }
            if (!begins(m_script.unansweredBatch))
                client.write(packet(answer));
        }
    }
}
