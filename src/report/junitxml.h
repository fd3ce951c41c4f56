#pragma once

#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>

// A test case as CI systems show it: passed, failed with a message and a
// text, or skipped with the reason.
struct JUnitCase
{
    QString className;
    QString name;
    double seconds = 0;
    QString failure;     // the failure's message; empty when it passed
    QString failureText; // the failure's lines, printable as failureListing() gives them
    QString skipped;     // why it did not run; empty when it ran
};

struct JUnitSuite
{
    QString name;
    QDateTime timestamp;
    double seconds = 0;
    QList<QPair<QString, QString>> properties; // name, value
    QList<JUnitCase> cases;
};

// The suites as one JUnit XML document, as Jenkins, GitLab and Azure DevOps
// read it: <testsuites> holding each <testsuite> with its counts, properties
// and cases. Names, values and messages are written with their control
// characters escaped, as on the terminal, so that the document stays
// well-formed.
QByteArray junitXml(const QList<JUnitSuite> &suites);
