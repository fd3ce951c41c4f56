#include "tdssocket.h"

#include <QFile>
#include <QtEndian>

#include <sys/socket.h>

namespace {

bool receive(int socket, char *into, qsizetype size)
{
    return size == 0 || ::recv(socket, into, size_t(size), MSG_WAITALL) == size;
}

} // namespace

TdsSocket::~TdsSocket()
{
    if (m_tls)
        gnutls_deinit(m_tls);
    if (m_credentials)
        gnutls_certificate_free_credentials(m_credentials);
}

bool TdsSocket::handshake(const QString &certificate, const QString &key)
{
    gnutls_certificate_allocate_credentials(&m_credentials);
    gnutls_certificate_set_x509_key_file(m_credentials, QFile::encodeName(certificate).constData(),
                                         QFile::encodeName(key).constData(), GNUTLS_X509_FMT_PEM);
    gnutls_init(&m_tls, GNUTLS_SERVER | GNUTLS_NO_TICKETS);
    // TLS 1.2 as SQL Server speaks it inside TDS 7: nothing of the handshake
    // may follow the client's last record.
    gnutls_priority_set_direct(m_tls, "NORMAL:-VERS-TLS1.3", nullptr);
    gnutls_credentials_set(m_tls, GNUTLS_CRD_CERTIFICATE, m_credentials);
    gnutls_transport_set_ptr(m_tls, this);
    gnutls_transport_set_pull_function(m_tls, pull);
    gnutls_transport_set_push_function(m_tls, push);
    m_encrypted = gnutls_handshake(m_tls) == GNUTLS_E_SUCCESS;
    m_unread.clear();
    return m_encrypted;
}

bool TdsSocket::read(char *into, qsizetype size)
{
    for (qsizetype got = 0; m_encrypted && got < size;) {
        const ssize_t now = gnutls_record_recv(m_tls, into + got, size_t(size - got));
        if (now <= 0)
            return false;
        got += now;
    }
    return m_encrypted || receive(m_socket, into, size);
}

void TdsSocket::write(const QByteArray &bytes)
{
    if (m_encrypted)
        gnutls_record_send(m_tls, bytes.constData(), size_t(bytes.size()));
    else
        ::send(m_socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
}

ssize_t TdsSocket::pull(gnutls_transport_ptr_t self, void *into, size_t size)
{
    auto *socket = static_cast<TdsSocket *>(self);
    if (socket->m_encrypted)
        return ::recv(socket->m_socket, into, size, 0);
    char header[8];
    while (socket->m_unread.isEmpty()) {
        if (!receive(socket->m_socket, header, sizeof header))
            return 0;
        QByteArray body(qFromBigEndian<quint16>(header + 2) - qsizetype(sizeof header), '\0');
        if (!receive(socket->m_socket, body.data(), body.size()))
            return 0;
        socket->m_unread = body;
    }
    const qsizetype taken = qMin(qsizetype(size), socket->m_unread.size());
    memcpy(into, socket->m_unread.constData(), size_t(taken));
    socket->m_unread.remove(0, taken);
    return taken;
}

ssize_t TdsSocket::push(gnutls_transport_ptr_t self, const void *bytes, size_t size)
{
    auto *socket = static_cast<TdsSocket *>(self);
    QByteArray sent(static_cast<const char *>(bytes), qsizetype(size));
    if (!socket->m_encrypted) { // a handshake's record, in a PRELOGIN packet
        QByteArray header = QByteArray::fromHex("1201000000000000");
        qToBigEndian<quint16>(quint16(header.size() + sent.size()), header.data() + 2);
        sent.prepend(header);
    }
    return ::send(socket->m_socket, sent.constData(), sent.size(), MSG_NOSIGNAL) == sent.size() ? ssize_t(size) : -1;
}
