#pragma once

#include <QHash>
#include <QStringList>

#include <chrono>
#include <list>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

class TdsSocket;

// A listener on the loopback address that speaks just enough of SQL Server's
// TDS protocol for the real driver to log in, send batches and begin and end
// transactions, and records what it receives. Encryption is offered only with
// a certificate. Each client is served on a thread of its own, as a server
// serves its sessions at once.
class TdsListener
{
public:
    enum class Manner { Answering, Silent, Garbage };

    // An error the listener answers with, as the server numbers it.
    struct Error
    {
        int number;
        QString message;
    };

    // How it answers; batches are matched by how they begin.
    struct Script
    {
        Manner manner = Manner::Answering;
        QString refusedBatch;            // refused with kRefusal
        QString unansweredBatch;         // no answer until the client cancels
        bool answersTransactions = true; // false: a transaction's beginning or end is never answered
        QString hangUpBatch;             // the connection is closed instead of an answer
        std::optional<Error> loginError; // every login refused with it
        QString landsIn;                 // every login answered as landing in this database
        QHash<QString, QStringList> rows; // batches so begun answered with these values, as a column "name"
        std::chrono::milliseconds batchTime{0}; // how long each batch takes the server to answer
        bool keepsBatches = true;               // false: only counted, for fleets of thousands
        int appLockAnswer = 0;           // what sp_getapplock returns: 0 granted, -1 timed out
        QString blockedBatch;            // refused with kLockRequestTimedOut...
        int blockedTimes = 0;            // ...this many times, then answered
        // PEM files of the server's certificate and key: with them, the server
        // requires encryption, as SQL Server with forced encryption does.
        QString certificate;
        QString key;
    };

    struct Received
    {
        int connections = 0;
        // Sessions at work at once, at most: each from its first batch to its
        // last, by the order batches arrived in, which a session's close and
        // the next one's login cannot blur.
        int mostAtOnce = 0;
        int batchCount = 0;
        QString user;
        QString database; // as named in the login
        QStringList logins; // the database named in each login, in turn
        int encrypted = 0;  // logins that came under TLS
        QStringList batches;
        QList<int> transactionRequests; // what each asked: 5 begin, 7 commit, 8 roll back
    };

    static constexpr int kRefusal = 50123;
    static constexpr int kLockRequestTimedOut = 1222;

    TdsListener();
    explicit TdsListener(Script script);
    // Waits for the clients to hang up first.
    ~TdsListener();

    // "127.0.0.1,port", as a connection profile names a server.
    QString dataSource() const;
    Received received() const;

private:
    void converse(TdsSocket &client);

    const Script m_script;
    int m_socket = -1;
    int m_port = 0;
    mutable std::mutex m_mutex;
    Received m_received;
    std::vector<std::pair<int, int>> m_spans; // each session's first and last batch, numbered as they arrived
    int m_blocked = 0; // refusals of the blocked batch so far
    std::thread m_thread;
    std::list<std::thread> m_clients; // joined once no more are taken
};
