#include "verifiedservers.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QSaveFile>
#include <QList>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

namespace {

struct ConfFile
{
    QMutex mutex;
    std::unique_ptr<QTemporaryDir> folder;
    QByteArray text; // what the file holds
    QList<VerifiedServer> servers; // in the order of their sections
};

ConfFile &confFile()
{
    static ConfFile file;
    return file;
}

QByteArray sectionText(const QString &name, const VerifiedServer &server)
{
    QString text = QStringLiteral("[%1]\n\thost = %2\n").arg(name, server.host);
    text += server.port != 0 ? QStringLiteral("\tport = %1\n").arg(server.port)
                             : QStringLiteral("\tinstance = %1\n").arg(server.instance);
    // "system": the driver's word for the system's store; a file is named by its whole path.
    text += QStringLiteral("\tca file = %1\n").arg(server.caFile.isEmpty() ? QStringLiteral("system") : server.caFile);
    text += QStringLiteral("\tcheck certificate hostname = %1\n").arg(server.checkHostName ? "yes" : "no");
    return text.toUtf8();
}

} // namespace

bool confMisreads(const QString &value)
{
    return value.trimmed() != value || value.contains(QLatin1String("  "))
        || std::any_of(value.begin(), value.end(), [](QChar c) {
               return c.category() == QChar::Other_Control || QStringLiteral(";#\"{}").contains(c);
           });
}

QString verifiedServerSection(const VerifiedServer &server, QString &error)
{
    ConfFile &conf = confFile();
    const QMutexLocker lock(&conf.mutex);
    const auto sectionName = [](qsizetype place) { return QStringLiteral("zrt-verified-%1").arg(place + 1); };
    if (const qsizetype known = conf.servers.indexOf(server); known >= 0)
        return sectionName(known);
    if (!conf.folder) {
        auto folder = std::make_unique<QTemporaryDir>();
        if (!folder->isValid()) {
            error = QStringLiteral("cannot make a folder for the driver's settings: %1").arg(folder->errorString());
            return QString();
        }
        if (QFile earlier(qEnvironmentVariable("FREETDSCONF")); !earlier.fileName().isEmpty() && earlier.open(QIODevice::ReadOnly))
            conf.text = earlier.readAll() + '\n';
        conf.folder = std::move(folder);
    }
    const QString name = sectionName(conf.servers.size());
    const QByteArray text = conf.text + sectionText(name, server);
    const QString path = conf.folder->filePath(QStringLiteral("freetds.conf"));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        error = QStringLiteral("cannot write %1: %2").arg(path, file.errorString());
        return QString();
    }
    conf.text = text;
    conf.servers << server;
    // Set once, the first time, and read by the driver at each connection.
    // Every fleet lists its servers before its runs start on threads of their
    // own, so that first time comes before them.
    if (qEnvironmentVariable("FREETDSCONF") != path)
        qputenv("FREETDSCONF", QFile::encodeName(path));
    return name;
}
