#pragma once

#include "dbstatus.h"

// Why a connection could not be opened, as the driver's answer tells it.
enum class OpenFailure {
    Unreachable,     // no server answered: down, unknown, or silent past the login timeout
    LoginRefused,    // the server refused the login
    DatabaseMissing, // the login was taken, the database named in it is not there
    Unverified,      // the server's certificate was refused: not trusted, or for another host name
    Other,           // refused for another reason, or by the program before anything was sent
};

OpenFailure openFailureOf(const DbStatus &status);

// "cannot reach", "login refused", ... as messages name the kind.
QString openFailureName(OpenFailure failure);

// The failed open as a message names it: what failed, where, and the
// driver's own words. `target` names the server ("server S"), `database` the
// database asked for, if any.
QString openFailureText(const DbStatus &status, const QString &target, const QString &database = QString());
