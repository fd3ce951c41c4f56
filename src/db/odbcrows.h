#pragma once

#include "odbchandle.h"
#include "resultset.h"

// Reads the statement's current result set whole, every value as text (NULL
// as a null value); a failing fetch keeps the rows read before it.
ResultSet readRows(const OdbcHandle &statement, SQLSMALLINT columns, bool *fetchFailed);
