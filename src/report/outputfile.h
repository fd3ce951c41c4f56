#pragma once

#include <QFile>
#include <QSaveFile>
#include <QString>

#include <optional>

// Where a command writes a file the operator named: a regular file, written
// whole when committed or not at all, or the standard output for "-". Nothing
// else is ever opened, so a device, a FIFO or a folder is never replaced.
class OutputFile
{
public:
    // Fails, with errorString(), for an empty name, anything but a regular
    // file or "-", or a file that cannot be made.
    bool open(const QString &path);
    QIODevice *device();
    // The whole text in place, or nothing of it.
    bool commit();
    QString errorString() const;
    QString name() const { return m_path; }

private:
    QString m_path;
    QString m_refusal;
    std::optional<QSaveFile> m_file;
    std::optional<QFile> m_standardOutput;
};

// Empty when `path` names a folder that exists or can be made; else why not.
QString outputFolderRefusal(const QString &path);
