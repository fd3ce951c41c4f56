#include "windowmain.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("ZRT"));
    return runWindow(argc, argv);
}
