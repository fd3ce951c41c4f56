#include "commandline.h"
#include "odbcconnection.h"
#include "windowmain.h"

#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("ZRT"));
    if (argc < 2)
        return runWindow(argc, argv);

    // With a command the program runs headless: no display is needed.
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    CommandContext context{out, err, sqlServerConnections(), odbcConnectionsTo, isatty(fileno(stderr)) != 0};
    return runCommandLine(application.arguments(), context);
}
