#pragma once

#include "dbstatus.h"

#include <sql.h>
#include <sqlext.h>

// Owns one ODBC handle (environment, connection or statement) and frees it.
// A handle must go before the handle it was allocated on.
class OdbcHandle
{
public:
    OdbcHandle(SQLSMALLINT type, SQLHANDLE parent);
    ~OdbcHandle();
    OdbcHandle(const OdbcHandle &) = delete;
    OdbcHandle &operator=(const OdbcHandle &) = delete;

    SQLHANDLE get() const { return m_handle; }
    bool isValid() const { return m_handle != SQL_NULL_HANDLE; }

    // The failure that the driver recorded on this handle for its last call:
    // the first record that is not a warning, with the server's own number
    // and state; `everyMessage` joins the other records' messages to its own.
    DbStatus failure(bool everyMessage = false) const;

private:
    SQLSMALLINT m_type;
    SQLHANDLE m_handle = SQL_NULL_HANDLE;
};
