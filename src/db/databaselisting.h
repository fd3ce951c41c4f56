#pragma once

#include "connection.h"

#include <QString>
#include <QStringList>

#include <atomic>

#include <functional>

inline constexpr char kConnectionNotEstablished[] =
    "Connection not established, please check the server configuration.";

struct ListingOutcome
{
    DbStatus failure; // what failed, for callers that name the reason
    bool loggedIn = false;      // the server took the login: a failure came after it
    bool interrupted = false;   // asked to stop while it listed
    int statementSeconds = 0;   // how long the listing's query could take
    QStringList refused;        // listed names that are no names, escaped, each with why
    QStringList noLongerListed; // a retry's names that the server lists no more

    bool failed() const { return !failure.ok; } // the window shows the connection message once
};

// Why SQL Server could not hold `name` as a database's name (empty, holding
// NUL, longer than 128 characters), or nothing.
QString databaseNameRefusal(const QString &name);

// Lists the application's databases on a server in the given mode, on a
// connection of its own, handing each name to `add` in the server's order.
// Names read before a failure stay added, except in "ONLINE" mode, where a
// failure adds none.
// Why a listing failed, for a message: the server named by `target`, what
// failed and the driver's words, passwords masked.
QString listingFailureText(const ListingOutcome &outcome, const QString &target);

// A `stop` set while the query runs cancels it at once: a listing changes nothing.
ListingOutcome listDatabases(const QString &mode, const QString &server, const ConnectionFactory &factory,
                             const std::function<void(const QString &)> &add, const std::atomic<bool> *stop = nullptr);
