#include "outputfile.h"

#include "lastwords.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstdio>

namespace {

// Empty when `path` may be written; else why not. A link is refused for what
// it is, never looked through.
QString refusal(const QString &path)
{
    if (path.isEmpty())
        return QStringLiteral("no file named");
    if (path == QLatin1String("-"))
        return QString();
    const QFileInfo info(path);
    if (info.isSymLink())
        return QStringLiteral("%1 is a symbolic link").arg(path);
    if (info.exists() && !info.isFile())
        return QStringLiteral("%1 is not a regular file").arg(path);
    return QString();
}

} // namespace

OutputFile::~OutputFile()
{
    if (m_lastWords)
        LastWords::instance().remove(*m_lastWords);
}

bool OutputFile::open(const QString &path)
{
    const QMutexLocker lock(&m_mutex);
    m_path = path;
    m_refusal = refusal(path);
    if (!m_refusal.isEmpty())
        return false;
    if (path == QLatin1String("-")) {
        m_standardOutput.emplace();
        return m_standardOutput->open(stdout, QIODevice::WriteOnly);
    }
    m_file.emplace(path);
    if (!m_file->open(QIODevice::WriteOnly))
        return false;
    m_lastWords = LastWords::instance().add([this] {
        const QMutexLocker lock(&m_mutex);
        commitLocked();
    });
    return true;
}

bool OutputFile::write(const QByteArray &bytes)
{
    const QMutexLocker lock(&m_mutex);
    QIODevice *device = m_standardOutput ? static_cast<QIODevice *>(&*m_standardOutput) : m_file ? &*m_file : nullptr;
    return !m_committed && device && device->write(bytes) == bytes.size();
}

void OutputFile::setLastLine(const QByteArray &line)
{
    const QMutexLocker lock(&m_mutex);
    m_lastLine = line;
}

bool OutputFile::commit()
{
    const QMutexLocker lock(&m_mutex);
    m_lastLine.clear(); // ended the ordinary way: its owner wrote the last line
    return commitLocked();
}

bool OutputFile::commitLocked()
{
    if (m_committed)
        return false;
    m_committed = true;
    if (m_standardOutput)
        return m_standardOutput->flush();
    if (!m_file)
        return false;
    if (!m_lastLine.isEmpty())
        m_file->write(m_lastLine);
    // Replaced by name, never through a link planted since it was opened.
    if (const QString now = refusal(m_path); !now.isEmpty()) {
        m_refusal = now;
        m_file->cancelWriting();
    }
    return m_file->commit();
}

QString OutputFile::errorString() const
{
    const QMutexLocker lock(&m_mutex);
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
    if (info.isSymLink())
        return QStringLiteral("%1 is a symbolic link").arg(path);
    if (info.exists() && !info.isDir())
        return QStringLiteral("%1 is not a folder").arg(path);
    if (!QDir().mkpath(path))
        return QStringLiteral("cannot make the folder %1").arg(path);
    // Found out now, not after every database has run.
    QTemporaryFile probe(QDir(path).filePath(QStringLiteral(".zrt-probe-XXXXXX")));
    if (!probe.open())
        return QStringLiteral("cannot write in the folder %1: %2").arg(path, probe.errorString());
    return QString();
}
