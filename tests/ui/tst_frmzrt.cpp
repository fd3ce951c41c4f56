#include "dialogs.h"
#include "frmzrt.h"
#include "mdzrt.h"
#include "scriptedconnection.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString kDatabaseNotFound = QStringLiteral("Database not found, please select the required account year database.");
const QString kConnectionNotEstablished = QStringLiteral("Connection not established, please check the server configuration.");
const QString kCompleted = QStringLiteral("MANAGING DATABASE PROCESS HAS COMPLETED.");

class AnsweringDialogs : public Dialogs
{
public:
    QStringList messages;
    DatabaseFile file;
    int fileDialogs = 0;

    void critical(QWidget *, const QString &text) override { messages << text; }
    DatabaseFile chooseDatabaseFile(QWidget *) override
    {
        ++fileDialogs;
        return file;
    }
};

const QString kOfflineListing = QStringLiteral("Select name From sysdatabases Where name like 'Quorvex%' Order By name");

// One window with a scripted server behind the shared connection and another for the listing.
struct Fixture
{
    ScriptedServer shared;
    ScriptedServer listing;
    AnsweringDialogs dialogs;
    mdZRT module{shared.connections()};
    frmZRT window{module, listing.connections(), dialogs};

    void list(const QStringList &names) { listing.answers.insert(kOfflineListing, singleColumn("name", names)); }
    qsizetype listings() const { return listing.logs().size(); }

    template<typename T> T *child(const char *name) { return window.findChild<T *>(QString::fromLatin1(name)); }
    QComboBox *combo(const char *name) { return child<QComboBox>(name); }
    QWidget *widget(const char *name) { return child<QWidget>(name); }
    QString caption() { return child<QLabel>("lblManageDatabase")->text(); }
    QStringList items(const char *name)
    {
        QStringList texts;
        for (int i = 0; i < combo(name)->count(); ++i)
            texts << combo(name)->itemText(i);
        return texts;
    }
    bool show()
    {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }
    void pressEnter(QWidget *box)
    {
        QTest::keyClick(box, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(); // the Tab that Enter sends
    }
};

bool highlighted(QComboBox *box)
{
    return box->palette().color(QPalette::Base) == QColor(1, 124, 106)
        && box->palette().color(QPalette::Text) == QColor(Qt::white);
}

bool unhighlighted(QComboBox *box)
{
    return box->palette().color(QPalette::Base) == QColor(Qt::white)
        && box->palette().color(QPalette::Text) == QColor(Qt::black);
}

} // namespace

class TestFrmZrt : public QObject
{
    Q_OBJECT

private slots:
    void startUpState();
    void focusColoursAndEnterAsTab();
    void leavingTheServerListListsAfresh();
    void unreachableServerThenProcess();
    void keyOnProcessButtonRuns_data();
    void keyOnProcessButtonRuns();
    void emptyDatabaseNameIsRefused();
    void missingDatabaseIsCreated_data();
    void missingDatabaseIsCreated();
};

void TestFrmZrt::startUpState()
{
    Fixture f;
    QVERIFY(f.show());
    QCOMPARE(f.items("cmbType"), (QStringList{"OFFLINE", "LOCAL", "ONLINE"}));
    QCOMPARE(f.combo("cmbType")->currentText(), QStringLiteral("OFFLINE"));
    QCOMPARE(f.items("cmbServer"), (QStringList{"ACCOUNTS", "QUORVEX", "QUORVEXMAIN", "LAPTOP", "SERVER"}));
    QCOMPARE(f.combo("cmbServer")->currentText(), QStringLiteral("ACCOUNTS"));
    QCOMPARE(f.combo("cmbDataBase")->count(), 0);
    QVERIFY(f.combo("cmbDataBase")->currentText().isEmpty());
    QCOMPARE(f.caption(), QStringLiteral("0%"));
    QCOMPARE(f.child<QLabel>("Label2")->text(), QStringLiteral("LOADING"));
    QVERIFY(f.widget("cmdProcess")->isVisible());
    QVERIFY(!f.widget("cmdEnd")->isVisible());
    QVERIFY(f.child<QProgressBar>("ProgressBar1")->isVisible());
    QCOMPARE(f.shared.logs().size(), 0);
    QCOMPARE(f.listings(), 0);

    // The three lists stand side by side in one row, the database list the widest.
    const QRect type = f.combo("cmbType")->geometry();
    const QRect server = f.combo("cmbServer")->geometry();
    const QRect database = f.combo("cmbDataBase")->geometry();
    QCOMPARE(type.top(), server.top());
    QCOMPARE(server.top(), database.top());
    QVERIFY(type.right() < server.left() && server.right() < database.left());
    QVERIFY(database.width() > server.width() && database.width() > type.width());
}

void TestFrmZrt::focusColoursAndEnterAsTab()
{
    Fixture f;
    f.list({"QuorvexA"});
    QVERIFY(f.show());
    QComboBox *type = f.combo("cmbType");
    QComboBox *server = f.combo("cmbServer");
    QComboBox *database = f.combo("cmbDataBase");
    type->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), type);
    QVERIFY(highlighted(type));
    QVERIFY(unhighlighted(server) && unhighlighted(database));

    f.pressEnter(type);
    QCOMPARE(QApplication::focusWidget(), server);
    QVERIFY(unhighlighted(type));
    QVERIFY(highlighted(server));
    QCOMPARE(f.listings(), 0);

    f.pressEnter(server);
    QCOMPARE(QApplication::focusWidget(), database);
    QVERIFY(unhighlighted(server));
    QVERIFY(highlighted(database));
    QCOMPARE(f.items("cmbDataBase"), QStringList{"QuorvexA"});
    // The listing has a connection of its own: the shared one is untouched.
    QCOMPARE(f.shared.logs().size(), 0);
    QVERIFY(!f.module.ConnectionOpened());
    QVERIFY(f.dialogs.messages.isEmpty());
}

void TestFrmZrt::leavingTheServerListListsAfresh()
{
    Fixture f;
    f.list({"QuorvexA", "QuorvexB"});
    QVERIFY(f.show());
    f.combo("cmbServer")->setFocus();
    f.pressEnter(f.combo("cmbServer"));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QVERIFY(f.combo("cmbDataBase")->currentText().isEmpty());

    f.combo("cmbServer")->setFocus();
    f.pressEnter(f.combo("cmbServer"));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QCOMPARE(f.listings(), 2);

    // Changing the mode alone keeps the earlier mode's list.
    f.combo("cmbType")->setFocus();
    f.combo("cmbType")->setEditText(QStringLiteral("LOCAL"));
    f.pressEnter(f.combo("cmbType"));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QCOMPARE(f.listings(), 2);
    QVERIFY(f.dialogs.messages.isEmpty());
}

void TestFrmZrt::unreachableServerThenProcess()
{
    Fixture f;
    f.listing.refusedOpens << QStringLiteral("master");
    QVERIFY(f.show());
    f.combo("cmbServer")->setFocus();
    f.pressEnter(f.combo("cmbServer"));
    QCOMPARE(f.dialogs.messages, QStringList{kConnectionNotEstablished});
    QCOMPARE(f.combo("cmbDataBase")->count(), 0);

    QTest::mouseClick(f.widget("cmdProcess"), Qt::LeftButton);
    QCOMPARE(f.dialogs.messages, (QStringList{kConnectionNotEstablished, kDatabaseNotFound}));
    QCOMPARE(QApplication::focusWidget(), f.combo("cmbDataBase"));
    QCOMPARE(f.shared.logs().size(), 0);
}

void TestFrmZrt::keyOnProcessButtonRuns_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("runs");
    QTest::newRow("letter") << int(Qt::Key_A) << true;
    QTest::newRow("space") << int(Qt::Key_Space) << true;
    QTest::newRow("Enter") << int(Qt::Key_Return) << true;
    QTest::newRow("Tab moves on") << int(Qt::Key_Tab) << false;
    QTest::newRow("arrow types nothing") << int(Qt::Key_Down) << false;
}

void TestFrmZrt::keyOnProcessButtonRuns()
{
    QFETCH(int, key);
    QFETCH(bool, runs);
    Fixture f;
    QVERIFY(f.show());
    f.combo("cmbDataBase")->setEditText(QStringLiteral("QuorvexA"));
    QWidget *process = f.widget("cmdProcess");
    process->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), process);
    QProgressBar *bar = f.child<QProgressBar>("ProgressBar1");
    QSignalSpy values(bar, &QProgressBar::valueChanged);

    QTest::keyClick(process, Qt::Key(key));

    QCOMPARE(process->isVisible(), !runs);
    QCOMPARE(f.widget("cmdEnd")->isVisible(), runs);
    QCOMPARE(f.caption(), runs ? kCompleted : QStringLiteral("0%"));
    if (!runs)
        return;
    QCOMPARE(bar->maximum(), 1000);
    QCOMPARE(bar->value(), 1000);
    QList<int> seen;
    for (const QList<QVariant> &value : values)
        seen << value.first().toInt();
    // valueChanged is silent when a value is set again, so 100 shows once.
    QCOMPARE(seen, (QList<int>{100, 200, 300, 400, 500, 600, 700, 800, 900, 1000}));
    QVERIFY(f.module.ConnectionOpened());
    QCOMPARE(f.shared.calls().first(),
             QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                            "Initial Catalog=QuorvexA;Data Source="));
    QVERIFY(f.dialogs.messages.isEmpty());
    QCOMPARE(f.dialogs.fileDialogs, 0);
}

void TestFrmZrt::emptyDatabaseNameIsRefused()
{
    Fixture f;
    QVERIFY(f.show());
    QProgressBar *bar = f.child<QProgressBar>("ProgressBar1");
    const int value = bar->value();
    const int maximum = bar->maximum();
    f.widget("cmdProcess")->setFocus();
    QTest::keyClick(f.widget("cmdProcess"), Qt::Key_Space);
    QCOMPARE(f.dialogs.messages, QStringList{kDatabaseNotFound});
    QCOMPARE(QApplication::focusWidget(), f.combo("cmbDataBase"));
    QCOMPARE(f.caption(), QStringLiteral("0%"));
    QCOMPARE(bar->value(), value);
    QCOMPARE(bar->maximum(), maximum);
    QVERIFY(f.widget("cmdProcess")->isVisible());
    QCOMPARE(f.shared.logs().size(), 0);
}

void TestFrmZrt::missingDatabaseIsCreated_data()
{
    QTest::addColumn<QString>("fullName");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("statement");
    QTest::newRow("typed name") << "D:\\Data\\Books2024" << "Books2024"
                                << "CREATE DATABASE [Books2024]  ON (NAME = N'Quorvex KRN', FILENAME = N'D:\\Data\\Books2024.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'D:\\Data\\Books2024_Log.ldf')";
    QTest::newRow("name typed as X.mdf") << "/srv/sql/X.mdf" << "X.mdf"
                                         << "CREATE DATABASE [X.mdf]  ON (NAME = N'Quorvex KRN', FILENAME = N'/srv/sql/X.mdf.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'/srv/sql/X.mdf_Log.ldf')";
    QTest::newRow("cancelled dialog") << "" << ""
                                      << "CREATE DATABASE []  ON (NAME = N'Quorvex KRN', FILENAME = N'.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'_Log.ldf')";
}

void TestFrmZrt::missingDatabaseIsCreated()
{
    QFETCH(QString, fullName);
    QFETCH(QString, title);
    QFETCH(QString, statement);
    Fixture f;
    f.shared.refusedOpens << QStringLiteral("Initial Catalog=QuorvexNew;");
    f.dialogs.file = {fullName, title};
    QVERIFY(f.show());
    f.combo("cmbDataBase")->setEditText(QStringLiteral("QuorvexNew"));
    QTest::mouseClick(f.widget("cmdProcess"), Qt::LeftButton);

    const QString runString = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                                             "Initial Catalog=QuorvexNew;Data Source=");
    const QString fallback = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;"
                                            "Initial Catalog=tempdb");
    QCOMPARE(f.dialogs.fileDialogs, 1);
    QCOMPARE(f.shared.calls().mid(0, 6),
             (QStringList{runString, fallback, "execute " + statement, "close", runString, fallback}));
    QVERIFY(!f.module.ConnectionOpened());
    // The run goes on, on the fallback connection, to its end.
    QCOMPARE(f.caption(), kCompleted);
    QVERIFY(f.dialogs.messages.isEmpty());
}

QTEST_MAIN(TestFrmZrt)
#include "tst_frmzrt.moc"
