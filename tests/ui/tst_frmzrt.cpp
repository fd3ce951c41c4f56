#include "dialogs.h"
#include "frmzrt.h"
#include "mdzrt.h"
#include "picturebutton.h"
#include "scriptedconnection.h"
#include "scriptfixture.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QStyleOptionComboBox>
#include <QTest>

namespace {

const QString kDatabaseNotFound = QStringLiteral("Database not found, please select the required account year database.");
const QString kConnectionNotEstablished = QStringLiteral("Connection not established, please check the server configuration.");
const QString kCompleted = QStringLiteral("MANAGING DATABASE PROCESS HAS COMPLETED.");
const QString kOpenOffline = QStringLiteral("open Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=");
const QString kOfflineListing = QStringLiteral("Select name From sysdatabases Where name like 'Quorvex%' Order By name");

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

// One window with a scripted server behind the shared connection and another for the listing.
struct Fixture
{
    ScriptedServer shared;
    ScriptedServer listing;
    AnsweringDialogs dialogs;
    mdZRT module{shared.connections()};
    frmZRT window{module, listing.connections(), dialogs};

    Fixture() { window.show(); }

    void list(const QStringList &names) { listing.answers.insert(kOfflineListing, singleColumn("name", names)); }

    template<typename T = QWidget> T *child(const QString &name) { return window.findChild<T *>(name); }
    QComboBox *combo(const QString &name) { return child<QComboBox>(name); }
    QStringList items(const QString &name)
    {
        QStringList texts;
        for (int i = 0; i < combo(name)->count(); ++i)
            texts << combo(name)->itemText(i);
        return texts;
    }
    void pressEnter(QWidget *box)
    {
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(); // the Tab that Enter sends
    }
    // Types into a box as the operator does, then leaves it by Enter.
    void type(QComboBox *box, const QString &text)
    {
        box->clearEditText();
        box->setFocus();
        QTest::keyClicks(box, text);
        pressEnter(box);
    }
};

bool highlighted(QComboBox *box, bool on)
{
    return box->palette().color(QPalette::Base) == (on ? QColor(1, 124, 106) : QColor(Qt::white))
        && box->palette().color(QPalette::Text) == (on ? QColor(Qt::white) : QColor(Qt::black));
}

} // namespace

class TestFrmZrt : public QObject
{
    Q_OBJECT

private slots:
    void startUpAndTheThreeLists();
    void dropDownKeepsTheFocus_data();
    void dropDownKeepsTheFocus();
    void pressingTheProcessButton_data();
    void pressingTheProcessButton();
    void missingDatabaseIsCreated();
};

void TestFrmZrt::startUpAndTheThreeLists()
{
    Fixture f;
    f.list({"QuorvexA", "QuorvexB"});
    QVERIFY(QTest::qWaitForWindowActive(&f.window));
    QComboBox *type = f.combo("cmbType");
    QComboBox *server = f.combo("cmbServer");
    QComboBox *database = f.combo("cmbDataBase");
    QCOMPARE(f.items("cmbType"), (QStringList{"OFFLINE", "LOCAL", "ONLINE"}));
    QCOMPARE(type->currentText(), QStringLiteral("OFFLINE"));
    QCOMPARE(f.items("cmbServer"), (QStringList{"ACCOUNTS", "QUORVEX", "QUORVEXMAIN", "LAPTOP", "SERVER"}));
    QCOMPARE(server->currentText(), QStringLiteral("ACCOUNTS"));
    QVERIFY(f.items("cmbDataBase").isEmpty() && database->currentText().isEmpty());
    QCOMPARE(f.child<QLabel>("lblManageDatabase")->text(), QStringLiteral("0%"));
    QCOMPARE(f.child<QLabel>("Label2")->text(), QStringLiteral("LOADING"));
    QVERIFY(f.child("cmdProcess")->isVisible() && !f.child("cmdEnd")->isVisible());
    QVERIFY(f.shared.logs().isEmpty() && f.listing.logs().isEmpty());
    // Side by side in one row, the database list the widest, each under its caption.
    QVERIFY(type->y() == server->y() && server->y() == database->y());
    QVERIFY(type->geometry().right() < server->x() && server->geometry().right() < database->x());
    QVERIFY(database->width() > server->width() && database->width() > type->width());
    QStringList captions;
    for (QLabel *label : f.window.findChildren<QLabel *>()) {
        if (label->buddy() && label->geometry().bottom() < label->buddy()->y() && label->x() == label->buddy()->x())
            captions << label->text() + ' ' + label->buddy()->objectName();
    }
    QCOMPARE(captions, (QStringList{"Mode cmbType", "Server cmbServer", "Database cmbDataBase"}));

    type->setFocus();
    QTRY_COMPARE(QApplication::focusWidget(), type);
    QVERIFY(highlighted(type, true) && highlighted(server, false) && highlighted(database, false));
    f.pressEnter(type);
    QCOMPARE(QApplication::focusWidget(), server);
    QVERIFY(highlighted(type, false) && highlighted(server, true));
    QVERIFY(f.listing.logs().isEmpty());
    f.pressEnter(server);
    QCOMPARE(QApplication::focusWidget(), database);
    QVERIFY(highlighted(server, false) && highlighted(database, true));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QVERIFY(database->currentText().isEmpty());

    // Again, with a prefix of a preset name typed: listed afresh from that
    // server as typed, without duplicates.
    f.type(server, QStringLiteral("QUORVEXM"));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QVERIFY(f.listing.logs().last().first().endsWith(QLatin1String("Data Source=QUORVEXM")));
    // Changing the mode alone keeps the earlier mode's list; typed in lower
    // case it stays so.
    f.type(type, QStringLiteral("local"));
    QCOMPARE(type->currentText(), QStringLiteral("local"));
    QCOMPARE(f.items("cmbDataBase"), (QStringList{"QuorvexA", "QuorvexB"}));
    QCOMPARE(f.listing.logs().size(), 2);
    // The listing has a connection of its own: the shared one is untouched.
    QVERIFY(f.shared.logs().isEmpty() && f.dialogs.messages.isEmpty());

    // An unreachable server: one message, and the earlier list is gone.
    type->setEditText(QStringLiteral("OFFLINE"));
    f.listing.refusedOpens << QStringLiteral("master");
    f.pressEnter(server);
    QCOMPARE(f.dialogs.messages, QStringList{kConnectionNotEstablished});
    QVERIFY(f.items("cmbDataBase").isEmpty());
}

void TestFrmZrt::dropDownKeepsTheFocus_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<bool>("byMouse"); // on the arrow, both ways; else Alt+Down, then F4, closed by Escape
    for (const char *box : {"cmbType", "cmbServer", "cmbDataBase"}) {
        QTest::addRow("%s by mouse", box) << box << true;
        QTest::addRow("%s by keys", box) << box << false;
    }
}

void TestFrmZrt::dropDownKeepsTheFocus()
{
    QFETCH(QString, box);
    QFETCH(bool, byMouse);
    Fixture f;
    f.list({"QuorvexA"});
    QVERIFY(QTest::qWaitForWindowActive(&f.window));
    QComboBox *list = f.combo(box);
    QComboBox *server = f.combo("cmbServer");
    if (list == f.combo("cmbDataBase"))
        f.pressEnter(server); // an empty list has no drop-down
    const qsizetype listings = f.listing.logs().size();
    QStyleOptionComboBox option;
    option.initFrom(list);
    option.editable = true;
    const QPoint arrow = list->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, list).center();
    if (!byMouse)
        list->setFocus();
    // The first opening is the one Qt reports as a loss of the focus twice.
    for (const bool first : {true, false}) {
        if (byMouse)
            QTest::mouseClick(list, Qt::LeftButton, {}, arrow);
        else
            QTest::keyClick(list, first ? Qt::Key_Down : Qt::Key_F4, first ? Qt::AltModifier : Qt::NoModifier);
        QWidget *popup = list->view()->window();
        QVERIFY(popup->isVisible());
        QVERIFY(highlighted(list, true));
        if (byMouse)
            QTest::mouseClick(popup, Qt::LeftButton, {}, popup->mapFromGlobal(list->mapToGlobal(arrow)));
        else
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!popup->isVisible());
        QCOMPARE(QApplication::focusWidget(), list);
        QVERIFY(highlighted(list, true));
    }
    QCOMPARE(f.listing.logs().size(), listings);
    QVERIFY(f.dialogs.messages.isEmpty());
    // Leaving the server list still lists, once.
    server->setFocus();
    QTest::keyClick(server, byMouse ? Qt::Key_Tab : Qt::Key_Return);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(f.listing.logs().size(), listings + 1);
    QCOMPARE(f.items("cmbDataBase"), QStringList{"QuorvexA"});
}

void TestFrmZrt::pressingTheProcessButton_data()
{
    QTest::addColumn<QString>("database"); // typed with QuorvexAB2024 listed
    QTest::addColumn<int>("key");          // pressed on the process button; 0 clicks it
    QTest::addColumn<QList<int>>("queued"); // clicks on both buttons while the run blocks
    QTest::addColumn<bool>("runs");
    const QList<int> none;
    const int press = QEvent::MouseButtonPress, release = QEvent::MouseButtonRelease;
    QTest::newRow("letter") << "QuorvexAB2024" << int(Qt::Key_A) << none << true;
    QTest::newRow("space") << "QuorvexAB2024" << int(Qt::Key_Space) << none << true;
    QTest::newRow("Enter") << "QuorvexAB2024" << int(Qt::Key_Return) << none << true;
    QTest::newRow("Tab moves on") << "QuorvexAB2024" << int(Qt::Key_Tab) << none << false;
    QTest::newRow("arrow types nothing") << "QuorvexAB2024" << int(Qt::Key_Down) << none << false;
    QTest::newRow("no database is refused") << "" << int(Qt::Key_Space) << none << false;
    QTest::newRow("prefix of a listed name") << "QuorvexAB" << 0 << none << true;
    QTest::newRow("impatient second click") << "QuorvexAB2024" << 0 << QList<int>{press, release} << true;
    QTest::newRow("second half of a double-click")
        << "QuorvexAB2024" << 0 << QList<int>{press, QEvent::MouseButtonDblClick, release} << true;
    QTest::newRow("press during the run, release after it") << "QuorvexAB2024" << 0 << QList<int>{press} << true;
}

void TestFrmZrt::pressingTheProcessButton()
{
    QFETCH(QString, database);
    QFETCH(int, key);
    QFETCH(QList<int>, queued);
    QFETCH(bool, runs);
    Fixture f;
    f.list({"QuorvexAB2024"});
    QVERIFY(QTest::qWaitForWindowActive(&f.window));
    f.pressEnter(f.combo("cmbServer"));
    f.type(f.combo("cmbDataBase"), database);
    QWidget *process = f.child("cmdProcess");
    QCOMPARE(QApplication::focusWidget(), process);
    auto *bar = f.child<QProgressBar>("ProgressBar1");
    QSignalSpy endClicks(f.child<PictureButton>("cmdEnd"), &PictureButton::clicked);
    const auto post = [&f](const QList<int> &types) {
        for (QWidget *button : {f.child("cmdProcess"), f.child("cmdEnd")}) {
            const QPointF at = QRectF(button->rect()).center();
            for (int type : types)
                QCoreApplication::postEvent(button, new QMouseEvent(QEvent::Type(type), at, button->mapToGlobal(at), Qt::LeftButton,
                                                                    type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {}));
        }
    };
    QList<int> seen; // valueChanged is silent when a value is set again, so 100 shows once
    connect(bar, &QProgressBar::valueChanged, this, [&](int value) {
        seen << value;
        // Well past the run's one yield: the window system holds such input until the run returns.
        if (value == 500)
            post(queued);
    });

    // A statement refused its locks: the window takes the refusal as it comes.
    f.shared.failingWith.insert(QStringLiteral("drop table [dbo].[tblKWClientInfo]"),
                                DbStatus::failure(QStringLiteral("Lock request time out period exceeded."), 1222));
    if (key)
        QTest::keyClick(process, Qt::Key(key));
    else
        QTest::mouseClick(process, Qt::LeftButton);
    post({QEvent::MouseButtonRelease}); // a release whose press went elsewhere clicks nothing
    QCoreApplication::processEvents();

    QVERIFY(process->isVisible() != runs && f.child("cmdEnd")->isVisible() == runs);
    QCOMPARE(endClicks.size(), 0);
    QCOMPARE(f.child<QLabel>("lblManageDatabase")->text(), runs ? kCompleted : QStringLiteral("0%"));
    QCOMPARE(seen, runs ? QList<int>({100, 200, 300, 400, 500, 600, 700, 800, 900, 1000}) : QList<int>());
    QCOMPARE(f.shared.calls().filter(QRegularExpression(QStringLiteral("^open "))),
             runs ? QStringList{kOpenOffline + database + ";Data Source="} : QStringList());
    // Each statement of the sequence once, and nothing else: no lock, no lock timeout.
    QStringList sent;
    for (const QString &call : f.shared.calls().mid(1))
        sent << call.section(QLatin1Char(' '), 1);
    QCOMPARE(sent, runs ? wholeRunFixtureStatements() : QStringList());
    // The refusal: its message, and the focus back on the database list.
    QCOMPARE(f.dialogs.messages, database.isEmpty() ? QStringList{kDatabaseNotFound} : QStringList());
    QCOMPARE(QApplication::focusWidget() == f.combo("cmbDataBase"), database.isEmpty());
}

void TestFrmZrt::missingDatabaseIsCreated()
{
    Fixture f;
    f.shared.refusedOpens << QStringLiteral("Initial Catalog=QuorvexNew;");
    f.dialogs.file = {QStringLiteral("D:\\Data\\Books2024"), QStringLiteral("Books2024")};
    QVERIFY(QTest::qWaitForWindowActive(&f.window));
    f.combo("cmbDataBase")->setEditText(QStringLiteral("QuorvexNew"));
    QTest::mouseClick(f.child("cmdProcess"), Qt::LeftButton);

    const QString runString = kOpenOffline + "QuorvexNew;Data Source=", fallback = kOpenOffline + "tempdb";
    QCOMPARE(f.dialogs.fileDialogs, 1);
    QCOMPARE(f.shared.calls().mid(0, 6),
             (QStringList{runString, fallback,
                          "execute CREATE DATABASE [Books2024]  ON (NAME = N'Quorvex KRN', FILENAME = N'D:\\Data\\Books2024.mdf') LOG ON (NAME = N'Quorvex KRN_Log', FILENAME = N'D:\\Data\\Books2024_Log.ldf')",
                          "close", runString, fallback}));
    QVERIFY(!f.module.ConnectionOpened());
    // The run goes on, on the fallback connection, to its end.
    QCOMPARE(f.child<QLabel>("lblManageDatabase")->text(), kCompleted);
    QVERIFY(f.dialogs.messages.isEmpty());
}

QTEST_MAIN(TestFrmZrt)
#include "tst_frmzrt.moc"
