#pragma once

#include "connection.h"

#include <QString>

#include <functional>

inline constexpr char kConnectionNotEstablished[] =
    "Connection not established, please check the server configuration.";

struct ListingOutcome
{
    bool failed = false; // the caller shows the connection message once
};

// Lists the application's databases on a server in the given mode, on a
// connection of its own, handing each name to `add` in the server's order.
// Names read before a failure stay added, except in "ONLINE" mode, where a
// failure adds none.
ListingOutcome listDatabases(const QString &mode, const QString &server, const ConnectionFactory &factory,
                             const std::function<void(const QString &)> &add);
