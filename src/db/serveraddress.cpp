#include "serveraddress.h"

#include "odbckeywords.h"

#include <QSet>

#include <netdb.h>
#include <sys/socket.h>

namespace {

// The addresses a host name resolves to, as text; none when it does not resolve.
QSet<QByteArray> resolved(const QString &host)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    QSet<QByteArray> addresses;
    if (::getaddrinfo(host.toUtf8().constData(), nullptr, &hints, &found) != 0)
        return addresses;
    for (const addrinfo *at = found; at; at = at->ai_next) {
        char text[NI_MAXHOST];
        if (::getnameinfo(at->ai_addr, at->ai_addrlen, text, sizeof text, nullptr, 0, NI_NUMERICHOST) == 0)
            addresses.insert(QByteArray(text));
    }
    ::freeaddrinfo(found);
    return addresses;
}

} // namespace

ServerAddress serverAddress(QString dataSource)
{
    dataSource = dataSource.trimmed();
    if (dataSource.startsWith(QLatin1String("tcp:"), Qt::CaseInsensitive))
        dataSource = dataSource.mid(4);
    if (dataSource.isEmpty() || dataSource == QLatin1String(".")
        || dataSource.compare(QLatin1String("(local)"), Qt::CaseInsensitive) == 0)
        return {QStringLiteral("localhost"), ServerAddress::kDefaultPort};
    if (dataSource.contains(QLatin1Char('\\')))
        return {dataSource, 0};
    const qsizetype comma = dataSource.lastIndexOf(QLatin1Char(','));
    if (comma >= 0) {
        bool ok = false;
        const int port = dataSource.mid(comma + 1).trimmed().toInt(&ok);
        if (ok && port > 0 && port < 65536)
            return {dataSource.left(comma).trimmed(), port};
    }
    return {dataSource, ServerAddress::kDefaultPort};
}

QString odbcServer(const QString &odbc)
{
    QString server;
    QString port;
    for (const OdbcKeyword &keyword : odbcKeywords(odbc)) {
        if (keyword.name.compare(QLatin1String("SERVER"), Qt::CaseInsensitive) == 0)
            server = keyword.value.trimmed();
        else if (keyword.name.compare(QLatin1String("PORT"), Qt::CaseInsensitive) == 0)
            port = keyword.value.trimmed();
    }
    return server.isEmpty() || port.isEmpty() ? server : server + QLatin1Char(',') + port;
}

bool sameServer(const QString &one, const QString &other)
{
    const ServerAddress a = serverAddress(one);
    const ServerAddress b = serverAddress(other);
    if (a.port != b.port)
        return false;
    if (a.port == 0) // host\instance: the same instance on the same host
        return a.host.section(QLatin1Char('\\'), 1).compare(b.host.section(QLatin1Char('\\'), 1), Qt::CaseInsensitive) == 0
            && sameServer(a.host.section(QLatin1Char('\\'), 0, 0), b.host.section(QLatin1Char('\\'), 0, 0));
    return a.host.compare(b.host, Qt::CaseInsensitive) == 0 || resolved(a.host).intersects(resolved(b.host));
}
