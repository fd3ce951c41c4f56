#pragma once

#include <QByteArray>
#include <QString>

#include <gnutls/gnutls.h>

// A client's socket as a server sees it: plain, or TLS as SQL Server speaks
// it, the handshake carried inside PRELOGIN packets, then records on the
// socket itself. Reads and writes are plain until the handshake and after end().
class TdsSocket
{
public:
    explicit TdsSocket(int socket);
    TdsSocket(const TdsSocket &) = delete;
    TdsSocket &operator=(const TdsSocket &) = delete;
    ~TdsSocket();

    // False when the client gave up on it (a certificate it did not trust).
    bool handshake(const QString &certificate, const QString &key);
    // Back to the plain socket, as after a login that only it encrypted.
    void end() { m_session = nullptr; }
    bool encrypted() const { return m_session != nullptr; }
    bool read(char *into, qsizetype size);
    void write(const QByteArray &bytes);

private:
    static ssize_t pull(gnutls_transport_ptr_t self, void *into, size_t size);
    static ssize_t push(gnutls_transport_ptr_t self, const void *bytes, size_t size);

    int m_socket;
    gnutls_certificate_credentials_t m_credentials = nullptr;
    gnutls_session_t m_tls = nullptr;
    gnutls_session_t m_session = nullptr; // m_tls once the handshake is done, until end()
    bool m_inPackets = true;              // the handshake's records travel in PRELOGIN packets
    QByteArray m_unread;                  // of the packets' bodies
};
