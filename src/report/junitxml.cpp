#include "junitxml.h"

#include "printabletext.h"

#include <QXmlStreamWriter>

namespace {

struct Counts
{
    qsizetype tests = 0;
    qsizetype failures = 0;
    qsizetype skipped = 0;
    double seconds = 0;
};

Counts counts(const JUnitSuite &suite)
{
    Counts counted{suite.cases.size(), 0, 0, suite.seconds};
    for (const JUnitCase &test : suite.cases) {
        counted.failures += test.failure.isEmpty() ? 0 : 1;
        counted.skipped += test.skipped.isEmpty() ? 0 : 1;
    }
    return counted;
}

QString seconds(double value)
{
    return QString::number(value, 'f', 3);
}

void writeCounts(QXmlStreamWriter &xml, const Counts &counted)
{
    xml.writeAttribute(QStringLiteral("tests"), QString::number(counted.tests));
    xml.writeAttribute(QStringLiteral("failures"), QString::number(counted.failures));
    xml.writeAttribute(QStringLiteral("errors"), QStringLiteral("0"));
    xml.writeAttribute(QStringLiteral("skipped"), QString::number(counted.skipped));
    xml.writeAttribute(QStringLiteral("time"), seconds(counted.seconds));
}

void writeCase(QXmlStreamWriter &xml, const JUnitCase &test)
{
    xml.writeStartElement(QStringLiteral("testcase"));
    xml.writeAttribute(QStringLiteral("classname"), escapedControls(test.className));
    xml.writeAttribute(QStringLiteral("name"), escapedControls(test.name));
    xml.writeAttribute(QStringLiteral("time"), seconds(test.seconds));
    if (!test.failure.isEmpty()) {
        xml.writeStartElement(QStringLiteral("failure"));
        xml.writeAttribute(QStringLiteral("message"), escapedControls(test.failure));
        xml.writeCharacters(test.failureText);
        xml.writeEndElement();
    }
    if (!test.skipped.isEmpty()) {
        xml.writeStartElement(QStringLiteral("skipped"));
        xml.writeAttribute(QStringLiteral("message"), escapedControls(test.skipped));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

} // namespace

QByteArray junitXml(const QList<JUnitSuite> &suites)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("testsuites"));
    Counts all;
    for (const JUnitSuite &suite : suites) {
        const Counts counted = counts(suite);
        all = {all.tests + counted.tests, all.failures + counted.failures, all.skipped + counted.skipped,
               all.seconds + counted.seconds};
    }
    writeCounts(xml, all);
    for (const JUnitSuite &suite : suites) {
        xml.writeStartElement(QStringLiteral("testsuite"));
        xml.writeAttribute(QStringLiteral("name"), escapedControls(suite.name));
        writeCounts(xml, counts(suite));
        xml.writeAttribute(QStringLiteral("timestamp"), reportTime(suite.timestamp));
        xml.writeStartElement(QStringLiteral("properties"));
        for (const auto &[name, value] : suite.properties) {
            xml.writeStartElement(QStringLiteral("property"));
            xml.writeAttribute(QStringLiteral("name"), escapedControls(name));
            xml.writeAttribute(QStringLiteral("value"), escapedControls(value));
            xml.writeEndElement();
        }
        xml.writeEndElement();
        for (const JUnitCase &test : suite.cases)
            writeCase(xml, test);
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}
