#include "commandline.h"
#include "commandsyntax.h"
#include "odbcconnection.h"
#include "windowlauncher.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstdio>
#include <unistd.h>

namespace {

std::atomic<bool> interrupted = false;

OdbcTimeouts timeouts(int statementSeconds)
{
    OdbcTimeouts timeouts;
    timeouts.statementSeconds = statementSeconds;
    return timeouts;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("ZRT"));
    // With a command the program runs headless: no display is needed. Without
    // one it starts the window where there is a display, else prints its usage.
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (argc < 2 && hasDisplay()) {
        err << "zrt: cannot start the window: " << execWindow() << "; give a command\n\n" << programHelp();
        return kExitUsage;
    }
    // The first Ctrl-C lets the statement under way finish, so no run stops
    // half-sent; a second ends the program at once (the server rolls back
    // whatever a preview had begun).
    std::signal(SIGINT, [](int) {
        if (interrupted.exchange(true))
            std::_Exit(kExitInterrupted);
    });
    CommandContext context{out, err,
                           [](int statementSeconds) { return sqlServerConnections(timeouts(statementSeconds)); },
                           [](const QString &odbc, int statementSeconds) {
                               return odbcConnectionsTo(odbc, timeouts(statementSeconds));
                           },
                           isatty(fileno(stderr)) != 0, &interrupted};
    return runCommandLine(application.arguments(), context);
}
