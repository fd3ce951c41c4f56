#include "emptydatabasescript.h"
#include "reportviewnames.h"
#include "runplan.h"
#include "scriptfixture.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>

namespace {

// The view phase as the run sends it: every statement from the first view
// drop up to the progress mark that ends the creates.
QStringList viewPhaseStatements()
{
    QStringList texts;
    for (const Step &step : maintenanceSteps()) {
        if (step.kind == Step::Kind::Progress && step.progress == 900)
            break;
        if (step.kind != Step::Kind::Execute)
            continue;
        if (texts.isEmpty() && !step.text.startsWith(QLatin1String("drop view ")))
            continue;
        texts << step.text;
    }
    return texts;
}

// Positions by lower-case name: the server's collation ignores letter case,
// and one definition spells a view it reads differently from its creation.
QHash<QString, int> positionsIgnoringCase(const QStringList &names)
{
    QHash<QString, int> positions;
    for (int i = 0; i < names.size(); ++i)
        positions.insert(names.at(i).toLower(), i);
    return positions;
}

// The report views a definition reads: every dbo. name in it other than its
// own that names a created view, in the spelling of the create list.
QStringList viewSources(const ReportView &view)
{
    static const QRegularExpression dboName(QStringLiteral("\\bdbo\\.(\\w+)"),
                                            QRegularExpression::CaseInsensitiveOption);
    const QStringList names = createNames();
    const QHash<QString, int> created = positionsIgnoringCase(names);
    const QString own = QString::fromUtf8(view.name).toLower();
    QStringList sources;
    for (const QRegularExpressionMatch &match : dboName.globalMatch(QString::fromUtf8(view.definition))) {
        const QString source = match.captured(1).toLower();
        if (source == own || !created.contains(source))
            continue;
        const QString spelled = names.at(created.value(source));
        if (!sources.contains(spelled))
            sources << spelled;
    }
    std::sort(sources.begin(), sources.end());
    return sources;
}

// The one drop that goes before its reader, kept as the application has it.
const QString kDroppedBeforeItsReader = QStringLiteral("DeliveryChallan");
const QString kItsReader = QStringLiteral("DeliveryChallanSummary");

} // namespace

class TestViewCatalog : public QObject
{
    Q_OBJECT

private slots:
    void viewPhaseIsTheFixtureByteForByte();
    void statementMatchesFixture_data();
    void statementMatchesFixture();
    void definitionNamesItsView_data();
    void definitionNamesItsView();
    void readsTheseViews_data();
    void readsTheseViews();
    void createdAfterItsSources_data();
    void createdAfterItsSources();
    void droppedBeforeItsSources_data();
    void droppedBeforeItsSources();
    void listsCoverTheViews();
};

void TestViewCatalog::viewPhaseIsTheFixtureByteForByte()
{
    QCOMPARE(scriptText(viewPhaseStatements()), fixtureBytes(QStringLiteral("view_phase.sql")));
}

void TestViewCatalog::statementMatchesFixture_data()
{
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("expected");

    const QStringList statements = fixtureStatements(QStringLiteral("view_phase.sql"));
    const QStringList sent = viewPhaseStatements();
    for (int i = 0; i < statements.size(); ++i) {
        const QString &text = statements.at(i);
        const QString head = text.left(text.indexOf(QLatin1String(" AS ")));
        QTest::addRow("%d %s", i + 1, qPrintable(head)) << sent.value(i) << text;
    }
}

void TestViewCatalog::statementMatchesFixture()
{
    QFETCH(QString, sent);
    QFETCH(QString, expected);
    QCOMPARE(sent, expected);
}

void TestViewCatalog::definitionNamesItsView_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("definition");
    for (const ReportView &view : reportViewsInCreateOrder()) {
        const QString name = QString::fromUtf8(view.name);
        QTest::newRow(qPrintable(name)) << name << QString::fromUtf8(view.definition);
    }
}

void TestViewCatalog::definitionNamesItsView()
{
    QFETCH(QString, name);
    QFETCH(QString, definition);
    static const QRegularExpression head(QStringLiteral("^CREATE VIEW dbo\\.(\\w+) AS "));
    const QRegularExpressionMatch match = head.match(definition);
    QVERIFY2(match.hasMatch(), qPrintable(definition.left(60)));
    QCOMPARE(match.captured(1), name);
}

void TestViewCatalog::readsTheseViews_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QStringList>("sources");

    const QHash<QString, QStringList> readers = {
        {QStringLiteral("AllPartiesRecoveryReport"), {QStringLiteral("OpeningBalanceOfRecovery"), QStringLiteral("PartiesRecoveryReport")}},
        {QStringLiteral("TrialBalanceWithClosing"), {QStringLiteral("TrialBalanceExpenses"), QStringLiteral("TrialBalanceUpToCash")}},
        {QStringLiteral("CashVoucher"), {QStringLiteral("PreviousCash")}},
        {QStringLiteral("AgingReport"), {QStringLiteral("PartyBalanceEmpty")}},
        {QStringLiteral("AgeingReportPeriod"), {QStringLiteral("AgeingBalance"), QStringLiteral("AgeingDays30"), QStringLiteral("AgeingDays31_60"), QStringLiteral("AgeingDays61_90"), QStringLiteral("AgeingDaysAbove90")}},
        {QStringLiteral("Ledger"), {QStringLiteral("LedgerOfAccount"), QStringLiteral("OpeningBalanceOfLedger")}},
        {QStringLiteral("LedgerLink"), {QStringLiteral("LedgerOfAccountLink"), QStringLiteral("OpeningBalanceOfLedgerLink")}},
        {QStringLiteral("LedgerSV"), {QStringLiteral("SaleRegisterTaxPayable")}},
        {QStringLiteral("LedgerOfAccountSaleTax"), {QStringLiteral("LedgerSV"), QStringLiteral("LedgerWithOutSaleTax")}},
        {QStringLiteral("LedgerSaleTax"), {QStringLiteral("LedgerOfAccountSaleTax"), QStringLiteral("OpeningBalanceOfLedger")}},
        {QStringLiteral("Bill"), {QStringLiteral("GetVoucherNoForBill")}},
        {QStringLiteral("DeliveryChallanSummary"), {QStringLiteral("DeliveryChallan")}},
    };
    // Every other view reads tables only.
    for (const ReportView &view : reportViewsInCreateOrder()) {
        const QString name = QString::fromUtf8(view.name);
        QTest::newRow(qPrintable(name)) << name << readers.value(name);
    }
}

void TestViewCatalog::readsTheseViews()
{
    QFETCH(QString, reader);
    QFETCH(QStringList, sources);
    const auto views = reportViewsInCreateOrder();
    const auto view = std::find_if(views.begin(), views.end(), [&](const ReportView &v) {
        return QString::fromUtf8(v.name) == reader;
    });
    QVERIFY(view != views.end());
    QCOMPARE(viewSources(*view), sources);
}

void TestViewCatalog::createdAfterItsSources_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("source");
    for (const ReportView &view : reportViewsInCreateOrder()) {
        for (const QString &source : viewSources(view)) {
            const QString reader = QString::fromUtf8(view.name);
            QTest::addRow("%s after %s", qPrintable(reader), qPrintable(source)) << reader << source;
        }
    }
}

void TestViewCatalog::createdAfterItsSources()
{
    QFETCH(QString, reader);
    QFETCH(QString, source);
    const QStringList creates = createNames();
    QVERIFY(creates.indexOf(source) < creates.indexOf(reader));
}

void TestViewCatalog::droppedBeforeItsSources_data()
{
    QTest::addColumn<QString>("reader");
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("readerFirst");
    const QStringList drops = dropNames();
    for (const ReportView &view : reportViewsInCreateOrder()) {
        const QString reader = QString::fromUtf8(view.name);
        if (!drops.contains(reader))
            continue;
        for (const QString &source : viewSources(view)) {
            if (!drops.contains(source))
                continue;
            if (reader == kItsReader && source == kDroppedBeforeItsReader) {
                QTest::addRow("%s dropped just before its reader %s", qPrintable(source), qPrintable(reader))
                    << reader << source << false;
            } else {
                QTest::addRow("%s before %s", qPrintable(reader), qPrintable(source))
                    << reader << source << true;
            }
        }
    }
}

void TestViewCatalog::droppedBeforeItsSources()
{
    QFETCH(QString, reader);
    QFETCH(QString, source);
    QFETCH(bool, readerFirst);
    const QStringList drops = dropNames();
    if (readerFirst)
        QVERIFY(drops.indexOf(reader) < drops.indexOf(source));
    else
        QCOMPARE(drops.indexOf(source) + 1, drops.indexOf(reader));
}

void TestViewCatalog::listsCoverTheViews()
{
    const QStringList creates = createNames();
    const QStringList drops = dropNames();
    QCOMPARE(creates.size(), 62);
    QCOMPARE(drops.size(), 60);
    QCOMPARE(positionsIgnoringCase(creates).size(), creates.size());
    QCOMPARE(positionsIgnoringCase(drops).size(), drops.size());

    const QSet<QString> created(creates.begin(), creates.end());
    const QSet<QString> dropped(drops.begin(), drops.end());
    QVERIFY(created.contains(dropped));
    QCOMPARE(created - dropped,
             QSet<QString>({QStringLiteral("PartyPosition"), QStringLiteral("OtherServices")}));
}

QTEST_APPLESS_MAIN(TestViewCatalog)
#include "tst_viewcatalog.moc"
