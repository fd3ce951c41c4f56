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

    static DbStatus success() { return {}; }
    static DbStatus failure(QString message, int nativeError = 0)
    {
        return {false, std::move(message), nativeError, false};
    }
};
