#pragma once

#include "namepatterns.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

// lock_timeout, lock_retries and lock_wait, where the file gives them.
struct FleetLockKeys
{
    std::optional<int> lockTimeout;
    std::optional<int> lockRetries;
    std::optional<int> lockWait;
};

// One [[server]] of a fleet file, as written there.
struct FleetFileServer
{
    QString server;  // as --server names it; beside odbc_env optional, the server its string reaches
    QString mode;
    QString odbcEnv; // the environment variable holding its ODBC string; empty: the mode's own login
    QString label;   // what the reports call it, if not its server
    QString encrypt; // as ZRT_ENCRYPT; empty: not given
    QString tlsCa;   // as ZRT_TLS_CA; empty: not given
    NamePatterns patterns;
    QString reach;   // the data source its connections reach, as the check gives it
    int line = 0;    // of its [[server]] table
    std::optional<int> jobs; // at most so many of its databases at once
    FleetLockKeys locks; // over the file's own
};

struct FleetFile
{
    std::optional<int> jobs;
    FleetLockKeys locks;
    QList<FleetFileServer> servers;
};

// Why a server's entry cannot be taken: the key at fault and the reason.
struct FleetRefusal
{
    QString key;
    QString reason;
};

// What the command line asks of each server beyond the file's form; it may
// put a value into the form it uses (a mode in upper case).
using FleetServerCheck = std::function<std::optional<FleetRefusal>(FleetFileServer &)>;

struct FleetFileReading
{
    std::optional<FleetFile> fleet;
    QString error; // "FILE:LINE: key 'KEY': why", or what kept the file from being read
    QByteArray digest; // SHA-256 of the bytes read, in hex
};

// Reads `path`: top-level jobs (from 1) and one or more [[server]] tables with
// mode, server (optional beside odbc_env), and optional odbc_env, label,
// encrypt, tls_ca, include, exclude and jobs (from 1); lock_timeout, lock_retries and
// lock_wait (from 0) at the top and in each [[server]]. An unknown or missing
// key, a value of the wrong type, a pattern that is none and two servers that
// reach one are errors, as is whatever `check` refuses; the check gives each
// server its reach.
FleetFileReading readFleetFile(const QString &path, const FleetServerCheck &check);
