#include "scriptfixture.h"

#include <QFile>

QByteArray fixtureBytes(const QString &name)
{
    QFile file(QStringLiteral(ZRT_TEST_DATA "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the fixture %s", qPrintable(file.fileName()));
    return file.readAll();
}

QStringList fixtureStatements(const QString &name)
{
    QStringList statements = QString::fromUtf8(fixtureBytes(name)).split(QStringLiteral("\nGO\n"));
    statements.removeLast(); // what follows the last GO: nothing
    return statements;
}
