#include "commandline.h"
#include "odbcconnection.h"
#include "windowmain.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstdio>
#include <unistd.h>

namespace {

std::atomic<bool> interrupted = false;

// Somewhere for the window to appear: an X or Wayland display, or a platform
// chosen outright (offscreen).
bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

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
    if (argc < 2 && hasDisplay())
        return runWindow(argc, argv);

    // With a command the program runs headless: no display is needed. Without
    // one and without a display it prints its usage.
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
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
