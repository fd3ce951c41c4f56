#pragma once

#include <QString>

#include <optional>

// The three connection modes and the connection strings built from them,
// exactly as the SQL Server OLE DB provider expects them.
namespace ConnectionProfiles {

inline constexpr char kOffline[] = "OFFLINE";
inline constexpr char kLocal[] = "LOCAL";
inline constexpr char kOnline[] = "ONLINE";

// Prefix up to and including "Initial Catalog=", or nothing for an unknown mode.
std::optional<QString> prefix(const QString &mode);

// The run's string: prefix, catalog, ";Data Source=", data source.
QString runConnectionString(const QString &prefix, const QString &catalog, const QString &dataSource);

// The listing string on `master`; only "OFFLINE" and "LOCAL" have one.
std::optional<QString> listingConnectionString(const QString &mode, const QString &dataSource);

// Where a run opens for the server chosen: the server itself, except in
// ONLINE mode, where the server only decides whether the run opens at all and
// the run works on the local default instance, as it does from the window.
QString runDataSource(const QString &mode, const QString &server);

// Opened under integrated security when the chosen database cannot be.
QString fallbackConnectionString();

// "tcp:" host ",1433" of the hosted server; ZRT_ONLINE_SERVER overrides the host.
QString onlineDataSource();

} // namespace ConnectionProfiles
