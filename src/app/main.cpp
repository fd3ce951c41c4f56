#include "commandline.h"
#include "commandsyntax.h"
#include "lastwords.h"
#include "odbcconnection.h"
#include "windowlauncher.h"

#include <QCoreApplication>

#include <atomic>
#include <csignal>
#include <sys/ioctl.h>
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
    // What Qt says to itself is no concern of an operator's: the commands say
    // what went wrong in their own words.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    handleSignals();
    CommandContext context{out, err,
                           [](int statementSeconds, const std::optional<Encryption> &encryption) {
                               return sqlServerConnections(timeouts(statementSeconds), encryption);
                           },
                           [](const QString &odbc, int statementSeconds) {
                               return odbcConnectionsTo(odbc, timeouts(statementSeconds));
                           },
                           isatty(fileno(stderr)) != 0, &interrupted, isatty(fileno(stdout)) != 0};
    if (winsize size{}; ::ioctl(fileno(stderr), TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        context.columns = size.ws_col;
    return runCommandLine(application.arguments(), context);
}
