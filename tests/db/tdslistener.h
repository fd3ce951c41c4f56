#pragma once

#include <QStringList>

#include <mutex>
#include <thread>

// A listener on the loopback address that speaks just enough of SQL Server's
// TDS protocol for the real driver to log in and send batches, and records
// what it receives. Encryption is never offered.
class TdsListener
{
public:
    enum class Manner { Answering, Silent, Garbage };

    struct Received
    {
        int connections = 0;
        QString user;
        QString database; // as named in the login
        QStringList batches;
    };

    static constexpr int kRefusal = 50123;

    // Batches beginning with `refusedBatch` are refused with kRefusal; those
    // beginning with `unansweredBatch` get no answer until the client cancels.
    explicit TdsListener(Manner manner = Manner::Answering, QString refusedBatch = {}, QString unansweredBatch = {});
    // Waits for the client to hang up first.
    ~TdsListener();

    // "127.0.0.1,port", as a connection profile names a server.
    QString dataSource() const;
    Received received() const;

private:
    void converse(int client);

    const Manner m_manner;
    const QString m_refusedBatch;
    const QString m_unansweredBatch;
    int m_socket = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    Received m_received;
    std::thread m_thread;
};
