#include "windowmain.h"

#include "dialogs.h"
#include "frmzrt.h"
#include "mdzrt.h"
#include "odbcconnection.h"

#include <QApplication>

int runWindow(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const ConnectionFactory connections = sqlServerConnections();
    mdZRT module(connections);
    QtDialogs dialogs;
    frmZRT window(module, connections, dialogs);
    window.show();
    return application.exec();
}
