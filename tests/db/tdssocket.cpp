#include "tdssocket.h"

#include <QtEndian>

#include <sys/socket.h>

namespace {

bool receive(int socket, char *into, qsizetype size)
{
    return size == 0 || ::recv(socket, into, size_t(size), MSG_WAITALL) == size;
}

} // namespace

TdsSocket::TdsSocket(int socket)
    : m_socket(socket)
{
}

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
    gnutls_certificate_set_x509_key_file(m_credentials, certificate.toLocal8Bit().constData(),
                                         key.toLocal8Bit().constData(), GNUTLS_X509_FMT_PEM);
    gnutls_init(&m_tls, GNUTLS_SERVER | GNUTLS_NO_TICKETS);
    // TLS 1.2 as SQL Server speaks it inside TDS 7: nothing of the handshake
    // may follow the client's last record.
    gnutls_priority_set_direct(m_tls, "NORMAL:-VERS-TLS1.3", nullptr);
    gnutls_credentials_set(m_tls, GNUTLS_CRD_CERTIFICATE, m_credentials);
    gnutls_transport_set_ptr(m_tls, this);
    gnutls_transport_set_pull_function(m_tls, pull);
    gnutls_transport_set_push_function(m_tls, push);
    const int result = gnutls_handshake(m_tls);
    m_inPackets = false;
    m_session = result == GNUTLS_E_SUCCESS ? m_tls : nullptr;
    return m_session != nullptr;
}

bool TdsSocket::read(char *into, qsizetype size)
{
    if (!m_session)
        return receive(m_socket, into, size);
    for (qsizetype got = 0; got < size;) {
        const ssize_t now = gnutls_record_recv(m_session, into + got, size_t(size - got));
        if (now <= 0)
            return false;
        got += now;
    }
    return true;
}

void TdsSocket::write(const QByteArray &bytes)
{
    if (m_session)
        gnutls_record_send(m_session, bytes.constData(), size_t(bytes.size()));
    else
        ::send(m_socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
}

ssize_t TdsSocket::pull(gnutls_transport_ptr_t self, void *into, size_t size)
{
    auto *tls = static_cast<TdsSocket *>(self);
    if (!tls->m_inPackets)
        return ::recv(tls->m_socket, into, size, 0);
    while (tls->m_unread.isEmpty()) {
        char header[8];
        if (!receive(tls->m_socket, header, sizeof header))
            return 0;
        QByteArray body(qFromBigEndian<quint16>(header + 2) - qsizetype(sizeof header), '\0');
        if (!receive(tls->m_socket, body.data(), body.size()))
            return 0;
        tls->m_unread += body;
    }
    const qsizetype taken = qMin(qsizetype(size), tls->m_unread.size());
    memcpy(into, tls->m_unread.constData(), size_t(taken));
    tls->m_unread.remove(0, taken);
    return taken;
}

ssize_t TdsSocket::push(gnutls_transport_ptr_t self, const void *bytes, size_t size)
{
    auto *tls = static_cast<TdsSocket *>(self);
    QByteArray sent(static_cast<const char *>(bytes), qsizetype(size));
    if (tls->m_inPackets) {
        QByteArray header = QByteArray::fromHex("1201000000000000");
        qToBigEndian<quint16>(quint16(header.size() + sent.size()), header.data() + 2);
        sent.prepend(header);
    }
    return ::send(tls->m_socket, sent.constData(), size_t(sent.size()), MSG_NOSIGNAL) == sent.size() ? ssize_t(size) : -1;
}
