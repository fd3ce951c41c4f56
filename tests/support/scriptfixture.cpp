#include "scriptfixture.h"

#include <QFile>

namespace {

QStringList statementsOf(const QByteArray &script)
{
    QStringList statements = QString::fromUtf8(script).split(QStringLiteral("\nGO\n"));
    statements.removeLast(); // what follows the last GO: nothing
    return statements;
}

} // namespace

QByteArray fixtureBytes(const QString &name)
{
    QFile file(QStringLiteral(ZRT_TEST_DATA "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the fixture %s", qPrintable(file.fileName()));
    return file.readAll();
}

QStringList fixtureStatements(const QString &name)
{
    return statementsOf(fixtureBytes(name));
}

QByteArray wholeRunFixtureBytes()
{
    QByteArray script;
    for (const char *phase : {"rebuilt_table_drops.sql", "table_phase.sql", "view_phase.sql", "chart_phase.sql"})
        script += fixtureBytes(QLatin1String(phase));
    return script;
}

QStringList wholeRunFixtureStatements()
{
    return statementsOf(wholeRunFixtureBytes());
}
