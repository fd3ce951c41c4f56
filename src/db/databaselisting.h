#pragma once

#include "connection.h"

#include <QString>

#include <functional>

inline constexpr char kConnectionNotEstablished[] =
    "Connection not established, please check the server configuration.";

struct ListingOutcome
{
    DbStatus failure; // what failed, for callers that name the reason

    bool failed() const { return !failure.ok; } // the window shows the connection message once
};

// Lists the application's databases on a server in the given mode, on a
// connection of its own, handing each name to `add` in the server's order.
// Names read before a failure stay added, except in "ONLINE" mode, where a
// failure adds none.
// Why a listing failed, for a message: the server named by `target`, what
// failed and the driver's words, passwords masked.
QString listingFailureText(const ListingOutcome &outcome, const QString &target);

ListingOutcome listDatabases(const QString &mode, const QString &server, const ConnectionFactory &factory,
                             const std::function<void(const QString &)> &add);
