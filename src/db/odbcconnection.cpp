#include "odbcconnection.h"

#include "odbcconnectionstring.h"

#include <QAtomicInteger>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace {

// An unreachable server must answer with an error, not freeze the window.
constexpr int kLoginTimeoutSeconds = 5;

QString uniqueConnectionName()
{
    static QAtomicInteger<quint64> counter;
    return QStringLiteral("zrt-odbc-%1").arg(counter.fetchAndAddRelaxed(1));
}

DbStatus failureFrom(const QSqlError &error)
{
    return DbStatus::failure(error.text(), error.nativeErrorCode().toInt());
}

// Qt's ODBC driver prefixes "DSN=" to any string without DRIVER= or SERVER=,
// so a DSN string is handed over without its own keyword.
QString forQtOdbc(const QString &odbc)
{
    static const QLatin1String dsn("DSN=");
    if (odbc.startsWith(dsn, Qt::CaseInsensitive) && !odbc.contains(QLatin1String("DRIVER="), Qt::CaseInsensitive)
        && !odbc.contains(QLatin1String("SERVER="), Qt::CaseInsensitive))
        return odbc.mid(dsn.size());
    return odbc;
}

} // namespace

OdbcConnection::OdbcConnection(Translator toOdbc)
    : m_toOdbc(std::move(toOdbc))
    , m_name(uniqueConnectionName())
{
}

OdbcConnection::~OdbcConnection()
{
    close();
}

DbStatus OdbcConnection::open(const QString &connectionString)
{
    if (m_open)
        return DbStatus::failure(QStringLiteral("The connection is already open."));
    DbStatus status;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), m_name);
        db.setDatabaseName(forQtOdbc(m_toOdbc(connectionString)));
        db.setConnectOptions(QStringLiteral("SQL_ATTR_LOGIN_TIMEOUT=%1").arg(kLoginTimeoutSeconds));
        m_open = db.open();
        if (!m_open)
            status = failureFrom(db.lastError());
    }
    if (!m_open)
        QSqlDatabase::removeDatabase(m_name);
    return status;
}

DbStatus OdbcConnection::execute(const QString &sql)
{
    if (!m_open)
        return DbStatus::failure(QStringLiteral("The connection is not open."));
    QSqlQuery statement(QSqlDatabase::database(m_name, false));
    statement.setForwardOnly(true);
    if (!statement.exec(sql))
        return failureFrom(statement.lastError());
    return DbStatus::success();
}

DbStatus OdbcConnection::query(const QString &sql, ResultSet &into)
{
    if (!m_open)
        return DbStatus::failure(QStringLiteral("The connection is not open."));
    QSqlQuery statement(QSqlDatabase::database(m_name, false));
    statement.setForwardOnly(true);
    if (!statement.exec(sql))
        return failureFrom(statement.lastError());

    const QSqlRecord record = statement.record();
    QStringList columns;
    for (int i = 0; i < record.count(); ++i)
        columns << record.fieldName(i);
    QList<QVariantList> rows;
    while (statement.next()) {
        QVariantList row;
        row.reserve(record.count());
        for (int i = 0; i < record.count(); ++i)
            row << statement.value(i);
        rows << row;
    }
    std::optional<DbStatus> fetchError;
    if (statement.lastError().isValid())
        fetchError = failureFrom(statement.lastError());
    into = ResultSet(columns, rows, fetchError);
    return DbStatus::success();
}

DbStatus OdbcConnection::setAutocommit(bool on)
{
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    if (on || !db.transaction())
        return on ? DbStatus::success() : failureFrom(db.lastError());
    return DbStatus::success();
}

DbStatus OdbcConnection::rollback()
{
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    return db.rollback() ? DbStatus::success() : failureFrom(db.lastError());
}

DbStatus OdbcConnection::close()
{
    if (!m_open)
        return DbStatus::failure(QStringLiteral("The connection is not open."));
    QSqlDatabase::database(m_name, false).close();
    QSqlDatabase::removeDatabase(m_name);
    m_open = false;
    return DbStatus::success();
}

bool OdbcConnection::isOpen() const
{
    return m_open;
}

ConnectionFactory sqlServerConnections()
{
    return [] {
        return std::make_unique<OdbcConnection>([](const QString &oleDb) { return odbcFromOleDb(oleDb); });
    };
}

ConnectionFactory odbcConnectionsTo(const QString &odbc)
{
    return [odbc] { return std::make_unique<OdbcConnection>([odbc](const QString &) { return odbc; }); };
}
