#pragma once

#include <QMutex>
#include <QStringList>

#include <thread>

// A listener on the loopback address that speaks just enough of SQL Server's
// TDS protocol for the real driver to log in and send batches, and records
// what it receives. Encryption is never offered.
class TdsListener
{
public:
    enum class Manner { Answering, Silent, Garbage };

    struct Answers
    {
        Manner manner = Manner::Answering;
        QString refusedBatch;    // batches beginning so are refused with kRefusal
        QString unansweredBatch; // batches beginning so get no answer until the client cancels
    };

    struct Received
    {
        int connections = 0;
        QString user;
        QString serverName;
        QString database; // as named in the login
        QStringList batches;
    };

    static constexpr int kRefusal = 50123;

    TdsListener();
    explicit TdsListener(Answers answers);
    ~TdsListener();

    // "127.0.0.1,port", as a connection profile names a server.
    QString dataSource() const;
    Received received() const;

private:
    void serve();
    void converse(int client);

    const Answers m_answers;
    int m_socket = -1;
    quint16 m_port = 0;
    mutable QMutex m_mutex;
    Received m_received;
    int m_client = -1;
    bool m_stopping = false;
    std::thread m_thread;
};
