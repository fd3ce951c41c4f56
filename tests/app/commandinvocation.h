#pragma once

#include "commandline.h"
#include "odbcconnection.h"

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
    CommandContext context{out, err, std::move(sqlServer), odbcConnectionsTo, false, stop};
    result.exit = runCommandLine(QStringList{QStringLiteral("zrt")} + arguments, context);
    out.flush();
    err.flush();
    return result;
}
