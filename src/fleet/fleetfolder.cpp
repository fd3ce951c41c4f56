#include "fleetfolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace {

constexpr qsizetype kNameCharacters = 60; // a file name's 255 bytes hold them in UTF-8
constexpr int kMostTries = 1000;

} // namespace

InvocationFolder makeInvocationFolder(const QString &dir, const QString &command)
{
    const QString base = QDir(dir).filePath(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-"))
                                            + command);
    for (int attempt = 1; attempt <= kMostTries; ++attempt) {
        const QString path = attempt == 1 ? base : QStringLiteral("%1-%2").arg(base).arg(attempt);
        // mkdir makes a new folder or fails: it never takes an existing one, nor a link.
        if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0)
            return {path, QString()};
        if (errno != EEXIST)
            return {QString(), QStringLiteral("cannot make the folder %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno)))};
    }
    return {QString(), QStringLiteral("cannot make a new folder in %1: %2 names are taken").arg(dir).arg(kMostTries)};
}

QString reportFileName(qsizetype position, const QString &database)
{
    QString name = database.left(kNameCharacters);
    for (QChar &c : name) {
        if (!c.isLetterOrNumber() && c != u'-')
            c = u'_';
    }
    return QStringLiteral("%1-%2.jsonl").arg(position + 1, 3, 10, QLatin1Char('0')).arg(name);
}
