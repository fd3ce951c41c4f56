#pragma once

#include <QFile>
#include <QMutex>
#include <QSaveFile>
#include <QString>

#include <optional>

// Where a command writes a file the operator named: a regular file, written
// whole when committed or not at all, or the standard output for "-". Nothing
// else is ever opened or replaced: not a device, a FIFO or a folder, and not
// a symbolic link, which is never followed. Writes from several threads are
// taken one at a time; a file still open when the program is ended at once
// is committed with what it holds and its last line.
class OutputFile
{
public:
    OutputFile() = default;
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    // Fails, with errorString(), for an empty name, anything but a regular
    // file or "-", or a file that cannot be made.
    bool open(const QString &path);
    // False when the bytes did not all reach the file; nothing is written
    // once the file is committed.
    bool write(const QByteArray &bytes);
    // Written before the commit if the program must end before its own.
    void setLastLine(const QByteArray &line);
    // The whole text in place, or nothing of it.
    bool commit();
    QString errorString() const;
    QString name() const { return m_path; }

private:
    bool commitLocked();

    mutable QMutex m_mutex;
    QString m_path;
    QString m_refusal;
    QByteArray m_lastLine;
    bool m_committed = false;
    std::optional<int> m_lastWords;
    std::optional<QSaveFile> m_file;
    std::optional<QFile> m_standardOutput;
};

// Empty when `path` names a folder that exists or can be made, is not a
// symbolic link, and takes new files; else why not.
QString outputFolderRefusal(const QString &path);
