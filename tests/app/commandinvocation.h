#pragma once

#include "commandline.h"
#include "odbcconnection.h"

#include <QRegularExpression>
#include <QStringList>

// What one command printed and the status it ended with.
struct Invocation
{
    int exit = -1;
    QString out;
    QString err;
};

// Runs `zrt ARGUMENTS` in this process, its servers reached through `sqlServer`.
inline Invocation invoke(const QStringList &arguments, ConnectionFactory sqlServer = {},
                         const std::atomic<bool> *stop = nullptr)
{
    Invocation result;
    QTextStream out(&result.out);
    QTextStream err(&result.err);
    CommandContext context{out, err, std::move(sqlServer),
                           [](const QString &odbc) { return odbcConnectionsTo(odbc); }, false, stop};
    result.exit = runCommandLine(QStringList{QStringLiteral("zrt")} + arguments, context);
    out.flush();
    err.flush();
    return result;
}

// A count from a run's summary, by its label; -1 when the summary has none.
inline int summaryCount(const QString &summary, const QString &label)
{
    const QRegularExpression line(QLatin1Char('^') + QRegularExpression::escape(label) + QStringLiteral(":\\s+(\\d+)"),
                                  QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = line.match(summary);
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}
