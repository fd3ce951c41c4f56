#include "commandline.h"
#include "lastwords.h"
#include "odbcconnection.h"
#include "windowmain.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstdio>
#include <thread>
#include <unistd.h>

namespace {

std::atomic<bool> interrupted = false;
int signalPipe[2] = {-1, -1};

void passOn(int number)
{
    interrupted = true; // at once, before the interrupted write returns
    const char byte = char(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

// The first Ctrl-C or SIGTERM, and a closed pipe on the output, let the
// statement under way finish and send no other, so no run stops half-sent.
// A second Ctrl-C or SIGTERM ends the program at once: the reports and the
// index are first written with what they hold (the server rolls back
// whatever a preview had begun).
void watchSignals()
{
    int endings = 0;
    for (char number = 0; ::read(signalPipe[0], &number, 1) == 1;) {
        if (number != SIGPIPE && ++endings == 2) {
            LastWords::instance().sayAll();
            std::_Exit(kExitInterrupted);
        }
    }
}

void handleSignals()
{
    if (::pipe(signalPipe) != 0)
        return;
    std::thread(watchSignals).detach();
    struct sigaction action = {};
    action.sa_handler = passOn;
    action.sa_flags = SA_RESTART; // the drivers' own waits go on undisturbed
    for (int number : {SIGINT, SIGTERM, SIGPIPE})
        ::sigaction(number, &action, nullptr);
}

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
    handleSignals();
    CommandContext context{out, err,
                           [](int statementSeconds) { return sqlServerConnections(timeouts(statementSeconds)); },
                           [](const QString &odbc, int statementSeconds) {
                               return odbcConnectionsTo(odbc, timeouts(statementSeconds));
                           },
                           isatty(fileno(stderr)) != 0, &interrupted};
    return runCommandLine(application.arguments(), context);
}
