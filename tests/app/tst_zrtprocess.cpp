#include "tdslistener.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <unistd.h>

namespace {

const QString kListing = QStringLiteral("Select name From sys.databases Where name like 'Quorvex%' Order By name");
// Where the listener stops answering: the run blocks there until its statement times out.
const QString kUnanswered = QStringLiteral("CREATE TABLE [dbo].[tblDBCR]");

QList<QJsonObject> jsonLines(const QString &path)
{
    QFile file(path);
    QList<QJsonObject> lines;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (!line.isEmpty())
                lines << QJsonDocument::fromJson(line).object();
        }
    }
    return lines;
}

// The folder that the one invocation made in `reports`.
QString folderIn(const QString &reports)
{
    return reports + QLatin1Char('/') + QDir(reports).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
}

QStringList outcomes(const QString &reports)
{
    QFile file(folderIn(reports) + "/index.json");
    QStringList found;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QJsonValue &run : QJsonDocument::fromJson(file.readAll())["databases"].toArray())
            found << run["outcome"].toString();
    }
    return found;
}

} // namespace

// What only the program itself shows, run as a process against a listener:
// how it ends on signals and on an output that is gone.
class TestZrtProcess : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void endingSignals_data()
    {
        QTest::addColumn<bool>("fleet");
        QTest::addColumn<QList<int>>("sent");
        QTest::addColumn<int>("statementSeconds");
        QTest::addColumn<bool>("atOnce"); // else the statement under way ends first
        QTest::newRow("SIGTERM: the statement under way ends, no other is sent") << false << QList<int>{SIGTERM} << 2 << false;
        // Two of a kind sent at once would arrive as one.
        QTest::newRow("a Ctrl-C after a SIGTERM ends at once, the report kept")
            << false << QList<int>{SIGTERM, SIGINT} << 30 << true;
        QTest::newRow("run --all: a second Ctrl-C still writes the index") << true << QList<int>{SIGINT, SIGTERM} << 30 << true;
        QTest::newRow("a closed pipe never ends at once, nor counts as the first Ctrl-C")
            << false << QList<int>{SIGPIPE, SIGTERM} << 2 << false;
    }

    void endingSignals()
    {
        QFETCH(bool, fleet);
        QFETCH(QList<int>, sent);
        QFETCH(int, statementSeconds);
        QFETCH(bool, atOnce);
        TdsListener server({.unansweredBatch = kUnanswered, .rows = {{kListing, {"QuorvexA", "QuorvexB"}}}});
        const QString reports = m_dir.filePath(QTest::currentDataTag());
        QStringList arguments{"run", "--mode", "LOCAL", "--server", server.dataSource(), "--statement-timeout",
                              QString::number(statementSeconds)};
        arguments += fleet ? QStringList{"--all", "--jobs", "1", "--report-dir", reports}
                           : QStringList{"--database", "QuorvexA", "--report", reports};
        QProcess zrt;
        zrt.start(QStringLiteral(ZRT_PROGRAM), arguments);
        QTRY_VERIFY_WITH_TIMEOUT(server.received().batches.value(server.received().batches.size() - 1).startsWith(kUnanswered),
                                 10000);
        QElapsedTimer timer;
        timer.start();
        for (int signal : sent)
            ::kill(zrt.processId(), signal);
        QVERIFY(zrt.waitForFinished(10000));
        QCOMPARE(zrt.exitStatus(), QProcess::NormalExit);
        QCOMPARE(zrt.exitCode(), 130);
        QVERIFY2(!atOnce ? timer.elapsed() >= 1000 : timer.elapsed() < 1000 * statementSeconds / 2,
                 qPrintable(QString::number(timer.elapsed())));
        QVERIFY(server.received().batches.last().startsWith(kUnanswered));
        const QList<QJsonObject> report = jsonLines(fleet ? folderIn(reports) + "/001-QuorvexA.jsonl" : reports);
        QVERIFY(report.size() >= 2);
        QCOMPARE(report.first()["database"].toString(), QStringLiteral("QuorvexA"));
        QCOMPARE(report.last()["outcome"].toString(), QStringLiteral("interrupted"));
        QCOMPARE(report.last()["complete"].toBool(true), false);
        if (fleet)
            QCOMPARE(outcomes(reports), (QStringList{"interrupted", "not done"}));
    }

    // The folder is kept current as databases start and end, so a kill leaves
    // it to a retry, which opens only what had not completed.
    void aKilledFleetResumes()
    {
        TdsListener server({.rows = {{kListing, {"QuorvexA", "QuorvexB", "QuorvexC"}}}, .batchTime = std::chrono::milliseconds(2)});
        const QString reports = m_dir.filePath(QStringLiteral("killed"));
        QProcess zrt;
        zrt.start(QStringLiteral(ZRT_PROGRAM), {"run", "--all", "--mode", "LOCAL", "--server", server.dataSource(),
                                                "--jobs", "1", "--report-dir", reports});
        QTRY_VERIFY_WITH_TIMEOUT(outcomes(reports).startsWith("completed"), 20000);
        zrt.kill();
        QVERIFY(zrt.waitForFinished(10000));
        QCOMPARE(zrt.exitStatus(), QProcess::CrashExit);
        // One job: what completed, the one running, then what had not begun.
        const QStringList left = outcomes(reports);
        const qsizetype completed = left.count("completed");
        QVERIFY2(completed < 3 && left[completed] == "interrupted", qPrintable(left.join(", ")));
        const qsizetype before = server.received().logins.size();
        zrt.start(QStringLiteral(ZRT_PROGRAM), {"run", "--retry", folderIn(reports), "--mode", "LOCAL", "--server", server.dataSource(),
                                                "--jobs", "1", "--report-dir", reports + "-retried"});
        QVERIFY(zrt.waitForFinished(20000));
        QCOMPARE(zrt.exitCode(), 0);
        // The killed program's last login may still arrive after the kill.
        const QStringList names{"QuorvexA", "QuorvexB", "QuorvexC"};
        const QStringList since = server.received().logins.mid(before);
        QCOMPARE(since.mid(since.size() - (3 - completed)), names.mid(completed));
        for (const QString &done : names.first(completed))
            QVERIFY(!since.contains(done));
    }

    // A report is written whole when the run ends, by name: a link planted in
    // its place while the run is under way is refused, nothing made through it.
    void aLinkPlantedMidRunIsRefused()
    {
        TdsListener server({.batchTime = std::chrono::milliseconds(2)});
        const QString report = m_dir.filePath(QStringLiteral("planted.jsonl"));
        const QString target = m_dir.filePath(QStringLiteral("target"));
        QProcess zrt;
        zrt.start(QStringLiteral(ZRT_PROGRAM), {"run", "--mode", "LOCAL", "--server", server.dataSource(), "--database",
                                                "QuorvexA", "--report", report});
        QTRY_VERIFY_WITH_TIMEOUT(server.received().batches.size() > 10, 10000);
        QVERIFY(!QFileInfo::exists(report));
        QVERIFY(QFile::link(target, report));
        QVERIFY(zrt.waitForFinished(20000));
        QCOMPARE(zrt.exitCode(), 3);
        QVERIFY(zrt.readAllStandardError().contains("is a symbolic link"));
        QVERIFY(QFileInfo(report).isSymLink() && !QFileInfo::exists(target));
    }

    void aClosedOutputStopsTheFleet()
    {
        TdsListener server({.rows = {{kListing, {"QuorvexA", "QuorvexB"}}}});
        const QString reports = m_dir.filePath(QStringLiteral("closed"));
        // Its standard output: a pipe whose reader is gone before anything is written.
        int ends[2];
        QCOMPARE(::pipe(ends), 0);
        ::close(ends[0]);
        QProcess zrt;
        zrt.setChildProcessModifier([output = ends[1]] { ::dup2(output, STDOUT_FILENO); });
        zrt.start(QStringLiteral(ZRT_PROGRAM),
                  {"run", "--all", "--mode", "LOCAL", "--server", server.dataSource(), "--report-dir", reports});
        ::close(ends[1]);
        QVERIFY(zrt.waitForFinished(10000));
        QCOMPARE(zrt.exitStatus(), QProcess::NormalExit);
        QCOMPARE(zrt.exitCode(), 130);
        QVERIFY(zrt.readAllStandardError().contains("zrt run: cannot write the standard output"));
        // Stopped before its listing: the server is left to a retry to list.
        QCOMPARE(outcomes(reports), QStringList());
        QFile index(folderIn(reports) + "/index.json");
        QVERIFY(index.open(QIODevice::ReadOnly));
        QVERIFY(QJsonDocument::fromJson(index.readAll())["servers"][0]["error"].toString().contains("interrupted"));
    }

    void aStalledListing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("signalled");
        QTest::addColumn<int>("exit");
        QTest::addColumn<QString>("said");
        QTest::newRow("bounded by the statement timeout")
            << QStringList{"run", "--all", "--mode", "LOCAL", "--statement-timeout", "1"} << false << 4
            << "answered the login and then did not list its databases within 1 s\n";
        QTest::newRow("plan: a transaction the server never begins is bounded too")
            << QStringList{"plan", "--mode", "LOCAL", "--database", "QuorvexA", "--statement-timeout", "1"} << false << 4
            << "cannot preview without a transaction";
        QTest::newRow("list: one SIGTERM ends it at once") << QStringList{"list", "--mode", "LOCAL"} << true << 130
                                                           << "was interrupted";
        QTest::newRow("run --all: one SIGTERM ends it at once")
            << QStringList{"run", "--all", "--mode", "LOCAL"} << true << 130 << "was interrupted";
    }

    void aStalledListing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(bool, signalled);
        QFETCH(int, exit);
        QFETCH(QString, said);
        TdsListener server({.unansweredBatch = kListing, .answersTransactions = false});
        QProcess zrt;
        QElapsedTimer timer;
        timer.start();
        zrt.start(QStringLiteral(ZRT_PROGRAM), arguments + QStringList{"--server", server.dataSource()});
        if (signalled) {
            QTRY_VERIFY_WITH_TIMEOUT(server.received().batches.contains(kListing), 10000);
            timer.restart();
            ::kill(zrt.processId(), SIGTERM);
        }
        QVERIFY(zrt.waitForFinished(10000));
        QVERIFY2(timer.elapsed() < (signalled ? 1000 : 5000), qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(zrt.exitCode(), exit);
        const QString err = QString::fromUtf8(zrt.readAllStandardError());
        QVERIFY2(err.contains("server " + server.dataSource()) && err.contains(said) && !err.contains("cannot reach"),
                 qPrintable(err));
    }

    // Nothing but the command's own words on the standard error: no warning
    // of Qt's or a driver's.
    void everyFormSaysOnlyItsOwn_data()
    {
        QTest::addColumn<QStringList>("arguments"); // L the listener, F a fleet file, R a folder to retry, D a folder
        const QStringList one{"--mode", "LOCAL", "--database", "QuorvexA", "--server", "L"};
        const QStringList all{"--all", "--mode", "LOCAL", "--server", "L", "--report-dir", "D"};
        for (const char *command : {"run", "plan", "check"}) {
            QTest::addRow("%s", command) << QStringList{command} + one;
            QTest::addRow("%s --all", command) << QStringList{command} + all;
            QTest::addRow("%s --fleet", command) << QStringList{command, "--fleet", "F", "--report-dir", "D"};
            QTest::addRow("%s --retry", command) << QStringList{command, "--retry", "R", "--mode", "LOCAL", "--server", "L"};
            QTest::addRow("%s --help", command) << QStringList{command, "--help"};
        }
        QTest::newRow("script") << QStringList{"script"};
        QTest::newRow("script --output") << QStringList{"script", "--output", "D/script.sql"};
        QTest::newRow("list") << QStringList{"list", "--mode", "LOCAL", "--server", "L", "--json"};
        QTest::newRow("list --fleet") << QStringList{"list", "--fleet", "F"};
        QTest::newRow("help") << QStringList{"help"};
        QTest::newRow("help list") << QStringList{"help", "list"};
        QTest::newRow("-V") << QStringList{"-V"};
    }

    void everyFormSaysOnlyItsOwn()
    {
        QFETCH(QStringList, arguments);
        TdsListener server({.rows = {{kListing, {"QuorvexA"}}}});
        const QString dir = m_dir.filePath(QStringLiteral("said-") + QTest::currentDataTag());
        QVERIFY(QDir().mkpath(dir + "/retried"));
        const QByteArray at = server.dataSource().toUtf8();
        for (const auto &[path, text] : {std::pair{"/fleet.toml", "[[server]]\nserver = \"" + at + "\"\nmode = \"LOCAL\"\n"},
                                         {"/retried/index.json", R"({"type": "index", "format": 1, "command": "run", "servers": [{"server": ")"
                                          + at + R"(", "mode": "LOCAL"}], "databases": [{"database": "QuorvexA", "server": ")" + at
                                          + R"(", "mode": "LOCAL", "outcome": "not done"}]})"}}) {
            QFile file(dir + path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        }
        for (QString &argument : arguments) {
            argument = argument == "L" ? server.dataSource() : argument == "F" ? dir + "/fleet.toml" : argument == "R" ? dir + "/retried" : argument;
            argument.replace(QRegularExpression("^D"), dir);
        }
        QProcess zrt;
        zrt.start(QStringLiteral(ZRT_PROGRAM), arguments);
        QVERIFY(zrt.waitForFinished(60000));
        QVERIFY2(zrt.exitCode() == 0 || (arguments.first() == "check" && zrt.exitCode() == 1), qPrintable(QString::number(zrt.exitCode())));
        QCOMPARE(QString::fromUtf8(zrt.readAllStandardError()), QString());
        // A preview's transaction is begun first and rolled back, never committed.
        const QList<int> requests = server.received().transactionRequests;
        if (arguments.first() == "plan" && !arguments.contains("--help"))
            QVERIFY(requests.value(0) == 5 && requests.contains(8) && !requests.contains(7));
    }
};

QTEST_GUILESS_MAIN(TestZrtProcess)
#include "tst_zrtprocess.moc"
