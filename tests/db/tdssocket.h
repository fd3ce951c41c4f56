#pragma once

#include <QByteArray>
#include <QString>

#include <gnutls/gnutls.h>

// A client's socket as a server sees it: plain, or once handshake() is done,
// TLS as SQL Server speaks it, the handshake carried inside PRELOGIN packets,
// the records after it on the socket itself.
class TdsSocket
{
public:
    explicit TdsSocket(int socket)
        : m_socket(socket)
    {
    }
    TdsSocket(const TdsSocket &) = delete;
    TdsSocket &operator=(const TdsSocket &) = delete;
    ~TdsSocket();

    // False when the client gave up on it (a certificate it did not trust).
    bool handshake(const QString &certificate, const QString &key);
    bool encrypted() const { return m_encrypted; }
    bool read(char *into, qsizetype size);
    void write(const QByteArray &bytes);

private:
    static ssize_t pull(gnutls_transport_ptr_t self, void *into, size_t size);
    static ssize_t push(gnutls_transport_ptr_t self, const void *bytes, size_t size);

    int m_socket;
    gnutls_certificate_credentials_t m_credentials = nullptr;
    gnutls_session_t m_tls = nullptr;
    bool m_encrypted = false;
    QByteArray m_unread; // of the PRELOGIN packets' bodies, during the handshake
};
