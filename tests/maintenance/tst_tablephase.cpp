#include "emptydatabasescript.h"
#include "scriptfixture.h"
#include "tablephase.h"

#include <QTest>

namespace {

struct MarkPlace
{
    int value = 0;
    QString lastBefore;
    QString firstAfter;
};

// Only marks between top-level steps are seen, as the run passes them
// whatever its guards find.
QList<MarkPlace> markPlaces(const Steps &steps)
{
    QStringList sent;
    QList<std::pair<int, qsizetype>> marks;
    for (const Step &step : steps) {
        if (step.kind == Step::Kind::Progress)
            marks.push_back({step.progress, sent.size()});
        else
            sent += statementsForEmptyDatabase({step});
    }
    QList<MarkPlace> places;
    for (const auto &[value, before] : marks)
        places.push_back({value, before > 0 ? sent.at(before - 1) : QString(),
                          before < sent.size() ? sent.at(before) : QString()});
    return places;
}

} // namespace

class tst_TablePhase : public QObject
{
    Q_OBJECT

private slots:
    void sendsFixtureByteForByte();
    void progressMarksRiseByHundreds();
    void progressMarkPlaces_data();
    void progressMarkPlaces();
    void statementCounts_data();
    void statementCounts();
};

void tst_TablePhase::sendsFixtureByteForByte()
{
    const QStringList sent = statementsForEmptyDatabase(tablePhaseSteps());
    if (scriptText(sent) == fixtureBytes(QStringLiteral("table_phase.sql")))
        return;

    const QStringList expectedStatements = fixtureStatements(QStringLiteral("table_phase.sql"));
    const QStringList &actualStatements = sent;
    const qsizetype common = qMin(expectedStatements.size(), actualStatements.size());
    qsizetype index = 0;
    while (index < common && expectedStatements.at(index) == actualStatements.at(index))
        ++index;
    const QString expectedText = index < expectedStatements.size() ? expectedStatements.at(index) : QStringLiteral("<none>");
    const QString actualText = index < actualStatements.size() ? actualStatements.at(index) : QStringLiteral("<none>");
    QFAIL(qPrintable(QStringLiteral("statement %1 differs (%2 sent, %3 expected)\n   sent: [%4]\nexpected: [%5]")
                         .arg(index)
                         .arg(actualStatements.size())
                         .arg(expectedStatements.size())
                         .arg(actualText, expectedText)));
}

void tst_TablePhase::progressMarksRiseByHundreds()
{
    QList<int> values;
    for (const MarkPlace &mark : markPlaces(tablePhaseSteps()))
        values << mark.value;
    QCOMPARE(values, (QList<int>{100, 200, 300, 400, 500, 600, 700}));
}

void tst_TablePhase::progressMarkPlaces_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("lastBefore");
    QTest::addColumn<QString>("firstAfter");

    QTest::newRow("100 after the closing-date row")
        << 100 << QStringLiteral("Insert Into tblClosingDate ") << QStringLiteral("CREATE TABLE [dbo].[tblDBCR] ");
    QTest::newRow("200 after tblDBCR")
        << 200 << QStringLiteral("CREATE TABLE [dbo].[tblDBCR] ") << QStringLiteral("CREATE TABLE [dbo].[tblLogon] ");
    QTest::newRow("300 after the administrator row")
        << 300 << QStringLiteral("Insert Into tblLogon ") << QStringLiteral("CREATE TABLE [dbo].[tblMonthlyComparisonReportEmpty] ");
    QTest::newRow("400 after the monthly comparison table")
        << 400 << QStringLiteral("CREATE TABLE [dbo].[tblMonthlyComparisonReportEmpty] ")
        << QStringLiteral("CREATE TABLE [dbo].[tblDailyComparisonReportEmpty] ");
    QTest::newRow("500 after the party balance scratch table")
        << 500 << QStringLiteral("CREATE TABLE [dbo].[tblPartyBalanceEmpty] ") << QStringLiteral("CREATE TABLE [dbo].[tblPartyInfo] ");
    QTest::newRow("600 after the last invoice column")
        << 600 << QStringLiteral("ALTER TABLE [dbo].[tblInvoice] ADD [EntryDate] ") << QStringLiteral("CREATE TABLE [dbo].[tblInvoiceEmpty] ");
    QTest::newRow("700 after the last user-rights column")
        << 700 << QStringLiteral("ALTER TABLE [dbo].[tblUserRights] ADD [UserName] ") << QStringLiteral("CREATE TABLE [dbo].[tblKWClientInfo] ");
}

void tst_TablePhase::progressMarkPlaces()
{
    QFETCH(int, value);
    QFETCH(QString, lastBefore);
    QFETCH(QString, firstAfter);

    const QList<MarkPlace> places = markPlaces(tablePhaseSteps());
    const auto mark = std::find_if(places.cbegin(), places.cend(),
                                   [value](const MarkPlace &place) { return place.value == value; });
    QVERIFY(mark != places.cend());
    QVERIFY2(mark->lastBefore.startsWith(lastBefore), qPrintable(mark->lastBefore));
    QVERIFY2(mark->firstAfter.startsWith(firstAfter), qPrintable(mark->firstAfter));
}

void tst_TablePhase::statementCounts_data()
{
    QTest::addColumn<QString>("beginning");
    QTest::addColumn<int>("count");

    QTest::newRow("tables created") << QStringLiteral("CREATE TABLE ") << 26;
    QTest::newRow("columns added or widened") << QStringLiteral("ALTER TABLE ") << 227;
}

void tst_TablePhase::statementCounts()
{
    QFETCH(QString, beginning);
    QFETCH(int, count);

    const QStringList statements = statementsForEmptyDatabase(tablePhaseSteps());
    const auto found = std::count_if(statements.cbegin(), statements.cend(),
                                     [&beginning](const QString &text) { return text.startsWith(beginning); });
    QCOMPARE(int(found), count);
}

QTEST_APPLESS_MAIN(tst_TablePhase)

#include "tst_tablephase.moc"
