#pragma once

#include "applicationlock.h"
#include "commandline.h"
#include "odbcconnection.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

// What one command printed and the status it ended with.
struct Invocation
{
    int exit = -1;
    QString out;
    QString err;
    QList<int> statementSeconds; // what the command asked of each connection factory
};

// Runs `zrt ARGUMENTS` in this process, its servers reached through `sqlServer`;
// its standard output is `standardOutput` when given; `terminal`: both
// outputs are taken for a terminal; `pause` stands in for the pauses between a statement's tries.
inline Invocation invoke(const QStringList &arguments, ConnectionFactory sqlServer = {},
                         const std::atomic<bool> *stop = nullptr, QIODevice *standardOutput = nullptr,
                         bool terminal = false, Pause pause = {})
{
    Invocation result;
    QTextStream out(&result.out);
    if (standardOutput)
        out.setDevice(standardOutput);
    QTextStream err(&result.err);
    CommandContext context{out, err,
                           [&result, sqlServer](int statementSeconds) {
                               result.statementSeconds << statementSeconds;
                               return sqlServer;
                           },
                           [&result](const QString &odbc, int statementSeconds) {
                               result.statementSeconds << statementSeconds;
                               OdbcTimeouts timeouts;
                               timeouts.statementSeconds = statementSeconds;
                               return odbcConnectionsTo(odbc, timeouts);
                           },
                           terminal, stop, terminal};
    context.pause = std::move(pause);
    result.exit = runCommandLine(QStringList{QStringLiteral("zrt")} + arguments, context);
    out.flush();
    err.flush();
    return result;
}

// The folders that invocations made in `dir`, the latest last.
inline QStringList invocationFolders(const QString &dir)
{
    QStringList folders;
    for (const QString &name : QDir(dir).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        folders << QDir(dir).filePath(name);
    return folders;
}

inline QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A report's lines: its context, one per statement, its end.
inline QList<QJsonObject> reportLines(const QString &path)
{
    QList<QJsonObject> lines;
    for (const QByteArray &line : fileBytes(path).split('\n')) {
        if (!line.isEmpty())
            lines << QJsonDocument::fromJson(line).object();
    }
    return lines;
}

// Each statement's text and outcome, from a report.
inline QStringList outcomes(const QString &report)
{
    QStringList lines;
    const QList<QJsonObject> all = reportLines(report);
    for (const QJsonObject &line : all.mid(1, all.size() - 2))
        lines << line.value("outcome").toString() + " " + line.value("text").toString();
    return lines;
}

