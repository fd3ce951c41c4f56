#pragma once

#include <QString>

// Outcome of one database operation. Failures are values: callers record or
// ignore them, nothing below the window throws or shows anything.
struct DbStatus
{
    bool ok = true;
    QString message;
    int nativeError = 0;
    // The statement ran past its time and was cancelled: a failure of its own kind.
    bool timedOut = false;
    QString sqlState; // the driver's five-character state, where it gave one
    // The connection died with this failure: nothing sent on it can arrive.
    bool connectionLost = false;
    // An open refused because the server's certificate was: the message says why.
    bool unverified = false;

    static DbStatus success() { return {}; }
    static DbStatus failure(QString message, int nativeError = 0)
    {
        DbStatus status;
        status.ok = false;
        status.message = std::move(message);
        status.nativeError = nativeError;
        return status;
    }
};
