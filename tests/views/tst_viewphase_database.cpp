#include "fakesqlserver.h"
#include "maintenancerun.h"
#include "mdzrt.h"
#include "quietrunhost.h"
#include "reportviewnames.h"
#include "runplan.h"
#include "stocktable.h"

#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <functional>

using DatabaseChange = std::function<void(FakeDatabase &)>;
Q_DECLARE_METATYPE(DatabaseChange)

namespace {

const QString kDatabase = QStringLiteral("Quorvex2024");

QString currentDefinition(const QString &name)
{
    for (const ReportView &view : reportViewsInCreateOrder()) {
        if (QString::fromUtf8(view.name) == name)
            return QString::fromUtf8(view.definition);
    }
    return {};
}

QString earlierDefinition(const QString &name)
{
    return QStringLiteral("CREATE VIEW dbo.%1 AS SELECT 1 AS EarlierVersion").arg(name);
}

// Every report view as an earlier version of the application left it.
void addEarlierViews(FakeDatabase &database)
{
    addStockTable(database);
    for (const QString &name : createNames())
        database.createView(name, earlierDefinition(name));
}

QStringList without(QStringList names, const QStringList &left)
{
    names.removeIf([&](const QString &name) { return left.contains(name); });
    return names;
}

QStringList sorted(QStringList names)
{
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

class TestViewPhaseDatabase : public QObject
{
    Q_OBJECT

private slots:
    void viewsAfterRuns_data();
    void viewsAfterRuns();
};

void TestViewPhaseDatabase::viewsAfterRuns_data()
{
    QTest::addColumn<DatabaseChange>("before");
    QTest::addColumn<int>("runs");
    QTest::addColumn<QStringList>("failedDrops");   // in the last run, in run order
    QTest::addColumn<QStringList>("failedCreates"); // in the last run, in run order
    QTest::addColumn<QStringList>("missingAfter");
    QTest::addColumn<QStringList>("earlierKept");

    const DatabaseChange nothing = [](FakeDatabase &) {};
    const QStringList stock = {QStringLiteral("Stock")};
    const QStringList neverDropped = {QStringLiteral("PartyPosition"), QStringLiteral("OtherServices")};

    QTest::newRow("new database") << nothing << 1 << dropNames() << stock << stock << QStringList();
    QTest::newRow("new database with tblStock")
        << DatabaseChange(addStockTable) << 1 << dropNames() << QStringList() << QStringList() << QStringList();
    QTest::newRow("every view of an earlier version")
        << DatabaseChange(addEarlierViews) << 1 << QStringList() << neverDropped << QStringList() << neverDropped;
    QTest::newRow("second run")
        << nothing << 2 << stock
        << QStringList({QStringLiteral("PartyPosition"), QStringLiteral("OtherServices"), QStringLiteral("Stock")})
        << stock << QStringList();
}

void TestViewPhaseDatabase::viewsAfterRuns()
{
    QFETCH(DatabaseChange, before);
    QFETCH(int, runs);
    QFETCH(QStringList, failedDrops);
    QFETCH(QStringList, failedCreates);
    QFETCH(QStringList, missingAfter);
    QFETCH(QStringList, earlierKept);

    const auto server = std::make_shared<FakeServerState>();
    before(server->database(kDatabase));
    CheckRecordsets recordsets;
    qsizetype lastRunStart = 0;
    for (int i = 0; i < runs; ++i) {
        lastRunStart = server->statementLog().size();
        mdZRT module(fakeSqlServerConnections(server));
        QuietRunHost host;
        MaintenanceRun run(module, host, recordsets);
        run.run({QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"), kDatabase}, maintenanceSteps());
    }

    static const QRegularExpression dropView(QStringLiteral("^drop view \\[dbo\\]\\.\\[(\\w+)\\]$"));
    static const QRegularExpression createView(QStringLiteral("^CREATE VIEW dbo\\.(\\w+) AS "));
    int drops = 0;
    int creates = 0;
    QStringList dropsFailed;
    QStringList createsFailed;
    for (const FakeLoggedStatement &logged : server->statementLog().sliced(lastRunStart)) {
        QCOMPARE(logged.database, kDatabase);
        if (const QRegularExpressionMatch drop = dropView.match(logged.text); drop.hasMatch()) {
            ++drops;
            if (!logged.ok)
                dropsFailed << drop.captured(1);
        } else if (const QRegularExpressionMatch create = createView.match(logged.text); create.hasMatch()) {
            ++creates;
            if (!logged.ok)
                createsFailed << create.captured(1);
        }
    }
    QCOMPARE(drops, 60);
    QCOMPARE(creates, 62);
    QCOMPARE(dropsFailed, failedDrops);
    QCOMPARE(createsFailed, failedCreates);

    const FakeDatabase &database = server->database(kDatabase);
    QCOMPARE(sorted(database.views()), sorted(without(createNames(), missingAfter)));
    for (const QString &name : database.views()) {
        const QString expected = earlierKept.contains(name) ? earlierDefinition(name) : currentDefinition(name);
        QCOMPARE(database.viewDefinition(name), expected);
    }
}

QTEST_GUILESS_MAIN(TestViewPhaseDatabase)
#include "tst_viewphase_database.moc"
