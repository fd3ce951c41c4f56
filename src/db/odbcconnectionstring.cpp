#include "odbcconnectionstring.h"

#include <QHash>
#include <QStringList>

namespace {

constexpr int kDefaultPort = 1433;

// OLE DB keywords are case-insensitive; a value may be quoted with ' or ",
// a doubled quote standing for itself. The system's strings end with the
// catalog and the data source, whose texts are typed by the operator: the
// catalog runs to the last ";Data Source=" and the data source to the end, so
// that no typed text can add or change a keyword.
QHash<QString, QString> parseOleDb(const QString &text)
{
    static const QLatin1String dataSourceKey(";Data Source=");
    QHash<QString, QString> pairs;
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n) {
        const qsizetype equals = text.indexOf(QLatin1Char('='), i);
        const qsizetype semicolon = text.indexOf(QLatin1Char(';'), i);
        if (equals < 0 || (semicolon >= 0 && semicolon < equals)) {
            if (semicolon < 0)
                break;
            i = semicolon + 1; // a piece without '=' carries no keyword
            continue;
        }
        const QString key = text.mid(i, equals - i).trimmed().toLower();
        i = equals + 1;
        QString value;
        if (key == QLatin1String("data source")) {
            value = text.mid(i);
            i = n;
        } else if (key == QLatin1String("initial catalog")) {
            const qsizetype end = text.lastIndexOf(dataSourceKey, -1, Qt::CaseInsensitive);
            value = text.mid(i, (end < i ? n : end) - i);
            i = end < i ? n : end + 1;
        } else if (i < n && (text[i] == QLatin1Char('\'') || text[i] == QLatin1Char('"'))) {
            const QChar quote = text[i++];
            while (i < n) {
                if (text[i] == quote) {
                    if (i + 1 < n && text[i + 1] == quote) {
                        value += quote;
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                value += text[i++];
            }
            const qsizetype end = text.indexOf(QLatin1Char(';'), i);
            i = end < 0 ? n : end + 1;
        } else {
            const qsizetype end = text.indexOf(QLatin1Char(';'), i);
            value = text.mid(i, (end < 0 ? n : end) - i).trimmed();
            i = end < 0 ? n : end + 1;
        }
        if (!key.isEmpty())
            pairs.insert(key, value);
    }
    return pairs;
}

QString braced(QString value)
{
    return QLatin1Char('{') + value.replace(QLatin1String("}"), QLatin1String("}}")) + QLatin1Char('}');
}

// Braced so that no value can end its pair early or start a keyword of its own.
QString odbcValue(const QString &value)
{
    if (!value.contains(QLatin1Char(';')) && !value.contains(QLatin1Char('{'))
        && !value.contains(QLatin1Char('}')) && value.trimmed() == value)
        return value;
    return braced(value);
}

struct ServerAddress
{
    QString host;
    int port = kDefaultPort; // 0: a named instance, found by the server browser
};

ServerAddress serverAddress(QString dataSource)
{
    dataSource = dataSource.trimmed();
    if (dataSource.startsWith(QLatin1String("tcp:"), Qt::CaseInsensitive))
        dataSource = dataSource.mid(4);
    if (dataSource.isEmpty() || dataSource == QLatin1String(".") || dataSource.compare(QLatin1String("(local)"), Qt::CaseInsensitive) == 0)
        return {QStringLiteral("localhost"), kDefaultPort};
    if (dataSource.contains(QLatin1Char('\\')))
        return {dataSource, 0};
    const qsizetype comma = dataSource.lastIndexOf(QLatin1Char(','));
    if (comma >= 0) {
        bool ok = false;
        const int port = dataSource.mid(comma + 1).trimmed().toInt(&ok);
        if (ok && port > 0 && port < 65536)
            return {dataSource.left(comma).trimmed(), port};
    }
    return {dataSource, kDefaultPort};
}

} // namespace

QString configuredOdbcDriver()
{
    return qEnvironmentVariable("ZRT_ODBC_DRIVER", QStringLiteral("FreeTDS"));
}

QString odbcFromOleDb(const QString &oleDb)
{
    return odbcFromOleDb(oleDb, configuredOdbcDriver());
}

QString odbcFromOleDb(const QString &oleDb, const QString &driver)
{
    const QHash<QString, QString> ole = parseOleDb(oleDb);
    const ServerAddress server = serverAddress(ole.value(QStringLiteral("data source")));

    QStringList pairs;
    pairs << QLatin1String("DRIVER=") + braced(driver);
    pairs << QLatin1String("SERVER=") + odbcValue(server.host);
    if (server.port != 0)
        pairs << QStringLiteral("PORT=%1").arg(server.port);
    if (ole.contains(QStringLiteral("initial catalog")))
        pairs << QLatin1String("DATABASE=") + odbcValue(ole.value(QStringLiteral("initial catalog")));
    if (ole.value(QStringLiteral("integrated security")).compare(QLatin1String("SSPI"), Qt::CaseInsensitive) == 0) {
        pairs << QStringLiteral("Trusted_Connection=Yes");
    } else {
        if (ole.contains(QStringLiteral("user id")))
            pairs << QLatin1String("UID=") + odbcValue(ole.value(QStringLiteral("user id")));
        if (ole.contains(QStringLiteral("password")))
            pairs << QLatin1String("PWD=") + odbcValue(ole.value(QStringLiteral("password")));
    }
    pairs << QStringLiteral("ClientCharset=UTF-8");
    return pairs.join(QLatin1Char(';'));
}
