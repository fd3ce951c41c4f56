#include "connectionprofiles.h"
#include "odbcconnectionstring.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

// Splits an ODBC connection string as a driver manager does: braced values may
// hold ';', '{' and '}' (a '}' doubled); the first '=' ends the keyword.
QList<QPair<QString, QString>> parseOdbc(const QString &text, bool *wellFormed)
{
    QList<QPair<QString, QString>> pairs;
    *wellFormed = true;
    qsizetype i = 0;
    while (i < text.size()) {
        const qsizetype equals = text.indexOf(QLatin1Char('='), i);
        if (equals < 0) {
            *wellFormed = false;
            return pairs;
        }
        const QString key = text.mid(i, equals - i);
        i = equals + 1;
        QString value;
        if (i < text.size() && text[i] == QLatin1Char('{')) {
            ++i;
            bool closed = false;
            while (i < text.size()) {
                if (text[i] == QLatin1Char('}')) {
                    if (i + 1 < text.size() && text[i + 1] == QLatin1Char('}')) {
                        value += QLatin1Char('}');
                        i += 2;
                        continue;
                    }
                    ++i;
                    closed = true;
                    break;
                }
                value += text[i++];
            }
            if (!closed || (i < text.size() && text[i] != QLatin1Char(';'))) {
                *wellFormed = false;
                return pairs;
            }
        } else {
            const qsizetype end = text.indexOf(QLatin1Char(';'), i);
            value = text.mid(i, (end < 0 ? text.size() : end) - i);
            if (value.contains(QLatin1Char('{')) || value.contains(QLatin1Char('}')))
                *wellFormed = false;
            i = end < 0 ? text.size() : end;
        }
        pairs.append({key, value});
        if (i < text.size())
            ++i; // the ';'
    }
    return pairs;
}

QString randomText(QRandomGenerator &random)
{
    static const QString alphabet = QStringLiteral("ab;={}'\" \\,:=QxyzDataSourceInitialCatalogUIDPWD\t.-_");
    QString text;
    const int length = random.bounded(0, 40);
    for (int i = 0; i < length; ++i)
        text += alphabet[random.bounded(alphabet.size())];
    if (random.bounded(3) == 0)
        text += QStringLiteral(";Data Source=x;User ID=sa;DRIVER={evil}");
    return text;
}

const QStringList kAllowedKeywords = {QStringLiteral("DRIVER"),   QStringLiteral("SERVER"),
                                      QStringLiteral("PORT"),     QStringLiteral("DATABASE"),
                                      QStringLiteral("UID"),      QStringLiteral("PWD"),
                                      QStringLiteral("Trusted_Connection"), QStringLiteral("ClientCharset")};

} // namespace

class TestConnectionStrings : public QObject
{
    Q_OBJECT

private slots:
    void oleDbStrings_data();
    void oleDbStrings();
    void onlineDataSource();
    void odbcTranslation_data();
    void odbcTranslation();
    void randomStringsNeverInjectKeywords();
};

void TestConnectionStrings::oleDbStrings_data()
{
    QTest::addColumn<QString>("built");
    QTest::addColumn<QString>("expected");
    using namespace ConnectionProfiles;
    QTest::newRow("run OFFLINE") << runConnectionString(*prefix(QStringLiteral("OFFLINE")), QStringLiteral("QuorvexAB2024"), QString())
                                 << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=QuorvexAB2024;Data Source=";
    QTest::newRow("run LOCAL") << runConnectionString(*prefix(QStringLiteral("LOCAL")), QStringLiteral("QuorvexX"), QString())
                               << "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=QuorvexX;Data Source=";
    QTest::newRow("run ONLINE") << runConnectionString(*prefix(QStringLiteral("ONLINE")), QStringLiteral("QuorvexY"), QString())
                                << "Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;User ID=kwonline;Initial Catalog=QuorvexY;Data Source=";
    QTest::newRow("listing OFFLINE") << *listingConnectionString(QStringLiteral("OFFLINE"), QStringLiteral("ACCOUNTS"))
                                     << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=master;Data Source=ACCOUNTS";
    QTest::newRow("listing LOCAL, server as typed") << *listingConnectionString(QStringLiteral("LOCAL"), QStringLiteral(" my server "))
                                                    << "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=master;Data Source= my server ";
    QTest::newRow("fallback") << fallbackConnectionString()
                              << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb";
}

void TestConnectionStrings::oleDbStrings()
{
    QFETCH(QString, built);
    QFETCH(QString, expected);
    QCOMPARE(built, expected);
}

void TestConnectionStrings::onlineDataSource()
{
    using namespace ConnectionProfiles;
    QVERIFY(!prefix(QStringLiteral("offline")));
    QVERIFY(!listingConnectionString(QStringLiteral("ONLINE"), QStringLiteral("SERVER")));
    qputenv("ZRT_ONLINE_SERVER", "db.example.test");
    QCOMPARE(ConnectionProfiles::onlineDataSource(), QStringLiteral("tcp:db.example.test,1433"));
    qunsetenv("ZRT_ONLINE_SERVER");
    QVERIFY(ConnectionProfiles::onlineDataSource().startsWith(QLatin1String("tcp:")));
    QVERIFY(ConnectionProfiles::onlineDataSource().endsWith(QLatin1String(",1433")));
}

void TestConnectionStrings::odbcTranslation_data()
{
    QTest::addColumn<QString>("oleDb");
    QTest::addColumn<QString>("odbc");
    QTest::newRow("run OFFLINE, local default instance")
        << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=QuorvexAB2024;Data Source="
        << "DRIVER={FreeTDS};SERVER=localhost;PORT=1433;DATABASE=QuorvexAB2024;Trusted_Connection=Yes;ClientCharset=UTF-8";
    QTest::newRow("listing LOCAL on a named server")
        << "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=master;Data Source=ACCOUNTS"
        << "DRIVER={FreeTDS};SERVER=ACCOUNTS;PORT=1433;DATABASE=master;UID=quorvex;PWD=Tq482Harbor517;ClientCharset=UTF-8";
    QTest::newRow("hosted server over tcp")
        << "Provider=SQLOLEDB.1;Password=#BranchPortal718Qz%;Persist Security Info=False;User ID=kwonline;Initial Catalog=master;Data Source=tcp:10.1.2.3,1433"
        << "DRIVER={FreeTDS};SERVER=10.1.2.3;PORT=1433;DATABASE=master;UID=kwonline;PWD=#BranchPortal718Qz%;ClientCharset=UTF-8";
    QTest::newRow("tcp with another port")
        << "Initial Catalog=a;Data Source=tcp:host.example,14330"
        << "DRIVER={FreeTDS};SERVER=host.example;PORT=14330;DATABASE=a;ClientCharset=UTF-8";
    QTest::newRow("named instance")
        << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=master;Data Source=LAPTOP\\SQLEXPRESS"
        << "DRIVER={FreeTDS};SERVER=LAPTOP\\SQLEXPRESS;DATABASE=master;Trusted_Connection=Yes;ClientCharset=UTF-8";
    QTest::newRow("fallback without data source")
        << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=tempdb"
        << "DRIVER={FreeTDS};SERVER=localhost;PORT=1433;DATABASE=tempdb;Trusted_Connection=Yes;ClientCharset=UTF-8";
    QTest::newRow("database name with ; and braces is one braced value")
        << "Provider=SQLOLEDB.1;Password=Tq482Harbor517;Persist Security Info=False;User ID=quorvex;Initial Catalog=a;UID=sa;{x};Data Source="
        << "DRIVER={FreeTDS};SERVER=localhost;PORT=1433;DATABASE={a;UID=sa;{x}}};UID=quorvex;PWD=Tq482Harbor517;ClientCharset=UTF-8";
    QTest::newRow("database name holding a data source")
        << "Provider=SQLOLEDB.1;Integrated Security=SSPI;Persist Security Info=False;Initial Catalog=q;Data Source=evil;Data Source="
        << "DRIVER={FreeTDS};SERVER=localhost;PORT=1433;DATABASE={q;Data Source=evil};Trusted_Connection=Yes;ClientCharset=UTF-8";
}

void TestConnectionStrings::odbcTranslation()
{
    QFETCH(QString, oleDb);
    QFETCH(QString, odbc);
    QCOMPARE(odbcFromOleDb(oleDb, QStringLiteral("FreeTDS")), odbc);
}

void TestConnectionStrings::randomStringsNeverInjectKeywords()
{
    QRandomGenerator random(20240105);
    const QString prefix = *ConnectionProfiles::prefix(QStringLiteral("LOCAL"));
    for (int round = 0; round < 4000; ++round) {
        const QString database = randomText(random);
        // The run's data source is always empty; the listing's is the typed server.
        const bool wholeRandom = round % 3 != 0;
        const QString oleDb = round % 3 == 1 ? randomText(random) + randomText(random)
            : round % 3 == 2 ? *ConnectionProfiles::listingConnectionString(QStringLiteral("LOCAL"), randomText(random))
                             : ConnectionProfiles::runConnectionString(prefix, database, QString());
        bool wellFormed = false;
        const auto pairs = parseOdbc(odbcFromOleDb(oleDb, QStringLiteral("FreeTDS")), &wellFormed);
        QVERIFY2(wellFormed, qPrintable(oleDb));
        QStringList keys;
        for (const auto &pair : pairs) {
            QVERIFY2(kAllowedKeywords.contains(pair.first), qPrintable(oleDb));
            QVERIFY2(!keys.contains(pair.first), qPrintable(oleDb));
            keys << pair.first;
        }
        if (wholeRandom)
            continue;
        QHash<QString, QString> values;
        for (const auto &pair : pairs)
            values.insert(pair.first, pair.second);
        QCOMPARE(values.value(QStringLiteral("DATABASE")), database);
        QCOMPARE(values.value(QStringLiteral("UID")), QStringLiteral("quorvex"));
        QCOMPARE(values.value(QStringLiteral("PWD")), QStringLiteral("Tq482Harbor517"));
        QCOMPARE(values.value(QStringLiteral("DRIVER")), QStringLiteral("FreeTDS"));
    }
}

QTEST_APPLESS_MAIN(TestConnectionStrings)
#include "tst_connectionstrings.moc"
