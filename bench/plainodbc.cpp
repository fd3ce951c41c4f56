#include "plainodbc.h"

#include <QElapsedTimer>

#include <sql.h>
#include <sqlext.h>

qint64 sendThroughPlainOdbc(const QString &connectionString, const QStringList &statements)
{
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    QByteArray odbc = connectionString.toUtf8();
    const SQLRETURN opened = SQLDriverConnect(connection, nullptr, reinterpret_cast<SQLCHAR *>(odbc.data()), SQL_NTS,
                                              nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    qint64 elapsed = -1;
    if (SQL_SUCCEEDED(opened)) {
        QElapsedTimer timer;
        timer.start();
        for (const QString &statement : statements) {
            SQLHSTMT handle = SQL_NULL_HSTMT;
            SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle);
            QByteArray text = statement.toUtf8();
            if (SQL_SUCCEEDED(SQLExecDirect(handle, reinterpret_cast<SQLCHAR *>(text.data()), SQL_NTS))) {
                SQLSMALLINT columns = 0;
                SQLNumResultCols(handle, &columns);
                while (columns > 0 && SQL_SUCCEEDED(SQLFetch(handle))) {
                }
            }
            SQLFreeHandle(SQL_HANDLE_STMT, handle);
        }
        elapsed = timer.nsecsElapsed();
        SQLDisconnect(connection);
    }
    SQLFreeHandle(SQL_HANDLE_DBC, connection);
    SQLFreeHandle(SQL_HANDLE_ENV, environment);
    return elapsed;
}
