#include "odbchandle.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace {

struct DiagnosticRecord
{
    QString state;
    int nativeError = 0;
    QString message;
};

std::optional<DiagnosticRecord> diagnosticRecord(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT number)
{
    SQLWCHAR state[6] = {};
    SQLINTEGER nativeError = 0;
    QList<SQLWCHAR> message(512);
    SQLSMALLINT length = 0;
    for (;;) {
        const SQLRETURN read = SQLGetDiagRecW(type, handle, number, state, &nativeError, message.data(),
                                              SQLSMALLINT(message.size()), &length);
        if (!SQL_SUCCEEDED(read))
            return std::nullopt;
        if (length < message.size())
            break;
        message.resize(length + 1); // the text was cut: read it again whole
    }
    return DiagnosticRecord{QString::fromUtf16(reinterpret_cast<const char16_t *>(state), 5), int(nativeError),
                            QString::fromUtf16(reinterpret_cast<const char16_t *>(message.constData()), length)};
}

} // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT type, SQLHANDLE parent)
    : m_type(type)
{
    if (!SQL_SUCCEEDED(SQLAllocHandle(type, parent, &m_handle)))
        m_handle = SQL_NULL_HANDLE;
}

OdbcHandle::~OdbcHandle()
{
    if (isValid())
        SQLFreeHandle(m_type, m_handle);
}

DbStatus OdbcHandle::failure(bool everyMessage) const
{
    std::optional<DbStatus> status;
    std::optional<DbStatus> warning;
    QStringList messages;
    bool timedOut = false;
    int laterNumber = 0;
    for (SQLSMALLINT number = 1;; ++number) {
        const std::optional<DiagnosticRecord> record = diagnosticRecord(m_type, m_handle, number);
        if (!record)
            break;
        timedOut = timedOut || record->state == QLatin1String("HYT00") || record->state == QLatin1String("HYT01");
        if (!messages.contains(record->message))
            messages << record->message;
        std::optional<DbStatus> &slot = record->state.startsWith(QLatin1String("01")) ? warning : status;
        if (!slot) {
            slot = DbStatus::failure(record->message, record->nativeError);
            slot->sqlState = record->state;
        }
        if (laterNumber == 0) // the first number the records give, for a failure that gave none
            laterNumber = record->nativeError;
    }
    if (!status)
        status = warning.value_or(DbStatus::failure(QStringLiteral("The ODBC driver failed without saying why.")));
    if (status->nativeError == 0)
        status->nativeError = laterNumber;
    status->timedOut = timedOut;
    if (everyMessage && messages.size() > 1) {
        messages.removeOne(status->message);
        status->message += QLatin1String(" (") + messages.join(QLatin1String("; ")) + QLatin1Char(')');
    }
    return *status;
}
