#include "dialogs.h"
#include "frmzrt.h"
#include "mdzrt.h"
#include "odbcconnection.h"
#include "programversion.h"

#include <QApplication>

#include <cstdio>
#include <cstring>

int main(int argc, char *argv[])
{
    // Answered before the application starts, so they need no display.
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            std::printf("Usage: zrt-window [QT-OPTIONS]\n\n"
                        "Opens the window that runs the maintenance on a chosen database. The\n"
                        "command line, with the same run and more, is zrt (zrt --help).\n");
            return 0;
        }
        if (std::strcmp(argv[i], "--version") == 0 || std::strcmp(argv[i], "-V") == 0) {
            std::printf("zrt-window %s\n", qPrintable(programVersion()));
            return 0;
        }
    }
    QApplication::setApplicationName(QStringLiteral("ZRT"));
    QApplication application(argc, argv);
    const ConnectionFactory connections = sqlServerConnections();
    mdZRT module(connections);
    QtDialogs dialogs;
    frmZRT window(module, connections, dialogs);
    window.show();
    return application.exec();
}
