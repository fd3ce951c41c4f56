#include "statementresult.h"
#include "viewcatalog.h"

#include <QTest>

class TestStatementResult : public QObject
{
    Q_OBJECT

private slots:
    void expectedRefusalsAreToldApart_data();
    void expectedRefusalsAreToldApart();
};

void TestStatementResult::expectedRefusalsAreToldApart_data()
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("message");
    QTest::addColumn<StatementResult>("result");
    const QString missing = QStringLiteral("Invalid object name 'dbo.%1'.");
    QTest::newRow("an existing table") << Action::CreateTable << 2714 << "" << StatementResult::AlreadyExisted;
    QTest::newRow("an existing column") << Action::AddColumn << 2705 << "" << StatementResult::AlreadyExisted;
    QTest::newRow("an existing database") << Action::CreateDatabase << 1801 << "" << StatementResult::AlreadyExisted;
    QTest::newRow("a table not there to drop") << Action::DropTable << 3701 << "" << StatementResult::NotThereToDrop;
    QTest::newRow("a view not there to drop") << Action::DropView << 3701 << "" << StatementResult::NotThereToDrop;
    QTest::newRow("3701 on anything but a drop") << Action::InsertBuiltInRow << 3701 << "" << StatementResult::Failed;
    QTest::newRow("a view reading a table no run creates")
        << Action::CreateView << 208 << missing.arg("tblStock") << StatementResult::SourceTableMissing;
    QTest::newRow("a view reading a table a run creates")
        << Action::CreateView << 208 << missing.arg("tblPartyInfo") << StatementResult::Failed;
    QTest::newRow("refused its locks") << Action::DropTable << 1222 << "Lock request time out period exceeded."
                                       << StatementResult::Blocked;
    QTest::newRow("another number") << Action::AddColumn << 207 << "Invalid column name 'x'." << StatementResult::Failed;
    QTest::newRow("SQLite: already exists") << Action::CreateTable << 1 << "table x already exists" << StatementResult::AlreadyExisted;
    QTest::newRow("SQLite: no such table to drop") << Action::DropTable << 1 << "no such table: x" << StatementResult::NotThereToDrop;
}

void TestStatementResult::expectedRefusalsAreToldApart()
{
    QFETCH(Action, action);
    QFETCH(int, number);
    QFETCH(QString, message);
    QFETCH(StatementResult, result);
    QString text = QStringLiteral("statement");
    if (action == Action::CreateView) {
        for (const ReportView &view : reportViewsInCreateOrder()) {
            if (view.name == "Stock")
                text = QString::fromUtf8(view.definition);
        }
    }
    QCOMPARE(classify({Phase::Tables, action, text, DbStatus::failure(message, number)}), result);
    DbStatus late = DbStatus::failure(message, number);
    late.timedOut = true; // whatever the number: past its time is its own kind
    QCOMPARE(classify({Phase::Tables, action, text, late}), StatementResult::TimedOut);
}

QTEST_APPLESS_MAIN(TestStatementResult)
#include "tst_statementresult.moc"
