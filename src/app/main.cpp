#include "commandline.h"
#include "odbcconnection.h"
#include "windowmain.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
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
    // Ctrl-C lets the statement under way finish, so no run stops half-sent.
    std::signal(SIGINT, [](int) { interrupted = true; });
    CommandContext context{out, err, sqlServerConnections(),
                           [](const QString &odbc) { return odbcConnectionsTo(odbc); }, isatty(fileno(stderr)) != 0,
                           &interrupted};
    return runCommandLine(application.arguments(), context);
}
