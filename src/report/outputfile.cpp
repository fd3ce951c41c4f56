#include "outputfile.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

// Empty when `path` may be written; else why not.
QString refusal(const QString &path)
{
    if (path.isEmpty())
        return QStringLiteral("no file named");
    if (path == QLatin1String("-"))
        return QString();
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return QStringLiteral("%1 is not a regular file").arg(path);
    return QString();
}

} // namespace

bool OutputFile::open(const QString &path)
{
    m_path = path;
    m_refusal = refusal(path);
    if (!m_refusal.isEmpty())
        return false;
    if (path == QLatin1String("-")) {
        m_standardOutput.emplace();
        return m_standardOutput->open(stdout, QIODevice::WriteOnly);
    }
    m_file.emplace(path);
    return m_file->open(QIODevice::WriteOnly);
}

QIODevice *OutputFile::device()
{
    if (m_standardOutput)
        return &*m_standardOutput;
    return m_file ? &*m_file : nullptr;
}

bool OutputFile::commit()
{
    if (m_standardOutput)
        return m_standardOutput->flush();
    return m_file && m_file->commit();
}

QString OutputFile::errorString() const
{
    if (!m_refusal.isEmpty())
        return m_refusal;
    if (m_standardOutput)
        return m_standardOutput->errorString();
    return m_file ? m_file->errorString() : QString();
}

QString outputFolderRefusal(const QString &path)
{
    if (path.isEmpty())
        return QStringLiteral("no folder named");
    const QFileInfo info(path);
    if (info.exists() && !info.isDir())
        return QStringLiteral("%1 is not a folder").arg(path);
    if (!QDir().mkpath(path))
        return QStringLiteral("cannot make the folder %1").arg(path);
    return QString();
}
