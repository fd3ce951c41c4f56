#include "odbcconnectionstring.h"

#include "odbckeywords.h"
#include "serveraddress.h"
#include "verifiedservers.h"

#include <QFileInfo>
#include <QHash>
#include <QStringList>

namespace {

// Pinned, so that the driver never falls back to an older protocol and waits
// on a server that does not answer.
constexpr char kTdsVersion[] = "7.4";

// The profiles' strings end with the catalog and the data source, whose texts
// are typed or listed: the catalog runs to the last ";Data Source=" and the
// data source to the end. Only the fixed keywords before them are split.
struct OleDbString
{
    QHash<QString, QString> keywords; // lower-case names
    QString catalog;
    QString dataSource;
    // A second ";Data Source=" in the typed texts: which one is the server
    // cannot be told, so nothing is opened.
    bool ambiguous = false;
};

OleDbString parseOleDb(const QString &text)
{
    static const QLatin1String catalogKey("Initial Catalog=");
    static const QLatin1String dataSourceKey(";Data Source=");
    OleDbString parsed;
    const qsizetype catalogAt = text.indexOf(catalogKey, 0, Qt::CaseInsensitive);
    const QString fixed = catalogAt < 0 ? text : text.left(catalogAt);
    for (const QString &pair : fixed.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const qsizetype equals = pair.indexOf(QLatin1Char('='));
        if (equals > 0)
            parsed.keywords.insert(pair.left(equals).trimmed().toLower(), pair.mid(equals + 1).trimmed());
    }
    if (catalogAt < 0)
        return parsed;
    const QString rest = text.mid(catalogAt + catalogKey.size());
    const qsizetype dataSourceAt = rest.lastIndexOf(dataSourceKey, -1, Qt::CaseInsensitive);
    parsed.catalog = dataSourceAt < 0 ? rest : rest.left(dataSourceAt);
    if (dataSourceAt >= 0)
        parsed.dataSource = rest.mid(dataSourceAt + dataSourceKey.size());
    parsed.ambiguous = parsed.catalog.contains(dataSourceKey, Qt::CaseInsensitive);
    return parsed;
}

// FreeTDS ends even a braced value at its first '}', so a value holding any
// of these could add keywords of its own.
bool readsAsKeywords(const QString &value)
{
    for (const QChar c : value) {
        if (c == QLatin1Char(';') || c == QLatin1Char('{') || c == QLatin1Char('}') || c == QLatin1Char('='))
            return true;
    }
    return false;
}

OdbcTarget refused(const QString &why)
{
    return {QString(), QString(), why};
}

} // namespace

OdbcTarget odbcTargetFromOleDb(const QString &oleDb, const Encryption &encryption, int requestSeconds)
{
    if (const std::optional<EncryptionRefusal> refusal =
            encryptionRefusal(encryption, QStringLiteral("ZRT_ENCRYPT"), QStringLiteral("ZRT_TLS_CA")))
        return refused(QStringLiteral("%1 %2.").arg(refusal->key, refusal->reason));
    const OleDbString ole = parseOleDb(oleDb);
    if (ole.ambiguous)
        return refused(QStringLiteral("The server or database name holds \";Data Source=\"."));
    if (readsAsKeywords(ole.dataSource))
        return refused(QStringLiteral("The server name \"%1\" cannot be used: it holds one of ; { } =.").arg(ole.dataSource));
    const ServerAddress server = serverAddress(ole.dataSource);

    const QString driver = QLatin1String("DRIVER={") + qEnvironmentVariable("ZRT_ODBC_DRIVER", QStringLiteral("FreeTDS"))
        + QLatin1Char('}');
    QStringList credentials;
    if (ole.keywords.value(QStringLiteral("integrated security")).compare(QLatin1String("SSPI"), Qt::CaseInsensitive) == 0) {
        credentials << QStringLiteral("Trusted_Connection=Yes");
    } else {
        // The profiles' fixed logins; none holds a character that needs care.
        for (const auto &[oleDbName, odbcName] : {std::pair{"user id", "UID="}, std::pair{"password", "PWD="}}) {
            if (ole.keywords.contains(QLatin1String(oleDbName)))
                credentials << QLatin1String(odbcName) + ole.keywords.value(QLatin1String(oleDbName));
        }
    }
    QStringList rest{QLatin1String("TDS_Version=") + QLatin1String(kTdsVersion), QStringLiteral("ClientCharset=UTF-8"),
                     QLatin1String("Encryption=")
                         + (encryption.mode == QLatin1String(kEncryptUnverified) ? QLatin1String(kEncryptRequire)
                                                                                   : encryption.mode)};
    // The driver waits on a transaction's beginning or end without any bound
    // of the ODBC attributes; only its own Timeout keyword bounds it.
    if (requestSeconds > 0)
        rest << QStringLiteral("Timeout=%1").arg(requestSeconds);
    QStringList address{QLatin1String("SERVER=") + server.host};
    if (server.port != 0)
        address << QStringLiteral("PORT=%1").arg(server.port);
    if (encryption.mode != QLatin1String(kEncryptRequire))
        return {(QStringList{driver} + address + credentials + rest).join(QLatin1Char(';')), ole.catalog, QString()};

    // Verified: the server is named by a section that says how.
    if (confMisreads(server.host))
        return refused(QStringLiteral("The server name \"%1\" cannot be verified: it holds one of # \", a control character, "
                                      "or spaces at an end or two in a row.").arg(server.host));
    const qsizetype backslash = server.host.indexOf(QLatin1Char('\\'));
    VerifiedServer verified{server.host.left(backslash), server.port, server.port != 0 ? QString() : server.host.mid(backslash + 1),
                            encryption.caFile.isEmpty() ? QString() : QFileInfo(encryption.caFile).absoluteFilePath()};
    QString error;
    const auto named = [&](const VerifiedServer &how) {
        return QStringList{driver, QLatin1String("SERVERNAME=") + verifiedServerSection(how, error)};
    };
    OdbcTarget target{(named(verified) + credentials + rest).join(QLatin1Char(';')), ole.catalog, QString()};
    VerifiedServer nameUnchecked = verified;
    nameUnchecked.checkHostName = false;
    // A login of no one, with no password: nothing of the operator's reaches
    // a server not yet verified, and no account of theirs counts a failure.
    const QStringList probe = QStringList{QStringLiteral("UID=zrt-certificate-probe"), QStringLiteral("PWD=")} + rest;
    target.hostNameUnchecked = (named(nameUnchecked) + probe).join(QLatin1Char(';'));
    target.unverified = (QStringList{driver} + address + probe).join(QLatin1Char(';'));
    return error.isEmpty() ? target : refused(error);
}

OdbcTarget odbcTargetFromGiven(const QString &odbc, const QString &oleDb)
{
    const OleDbString ole = parseOleDb(oleDb);
    if (ole.ambiguous)
        return refused(QStringLiteral("The database name holds \";Data Source=\"."));
    for (const OdbcKeyword &keyword : odbcKeywords(odbc)) {
        if (!ole.catalog.isEmpty() && keyword.name.compare(QLatin1String("DATABASE"), Qt::CaseInsensitive) == 0
            && keyword.value.compare(ole.catalog, Qt::CaseInsensitive) != 0)
            return {withoutKeyword(odbc, QStringLiteral("DATABASE")), ole.catalog, QString()};
    }
    return {odbc, ole.catalog, QString()};
}
