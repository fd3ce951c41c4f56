#pragma once

#include "dbstatus.h"
#include "resultset.h"

#include <QString>

class FakeServerState;

// Reads one statement of the forms the tool sends (CREATE/ALTER/drop of tables,
// CREATE/drop of views, Insert, Select, Update, CREATE DATABASE) and applies it
// to `database` on `server`. A Select fills `result`, from a table or from
// INFORMATION_SCHEMA.COLUMNS or .VIEWS; any other statement leaves it closed.
// A form it does not know fails as a syntax error (102).
DbStatus runFakeStatement(FakeServerState &server, const QString &database, const QString &sql, ResultSet &result);
