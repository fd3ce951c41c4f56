#pragma once

#include <QStringList>

// Sends each statement through bare ODBC calls on one connection, fetching
// every row of a result; returns the nanoseconds spent, or -1 when the
// connection could not be opened.
qint64 sendThroughPlainOdbc(const QString &connectionString, const QStringList &statements);
