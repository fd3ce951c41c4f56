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

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("ZRT"));
    if (argc < 2)
        return runWindow(argc, argv);

    // With a command the program runs headless: no display is needed.
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
