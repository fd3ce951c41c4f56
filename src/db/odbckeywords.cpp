#include "odbckeywords.h"

#include <QRegularExpression>

namespace {

// Where a value that starts at `at` ends: after its closing brace, or at the
// next ';' (the end of the text when there is none).
qsizetype valueEnd(const QString &text, qsizetype at)
{
    if (at < text.size() && text[at] == u'{') {
        for (qsizetype i = at + 1; i < text.size(); ++i) {
            if (text[i] != u'}')
                continue;
            if (i + 1 < text.size() && text[i + 1] == u'}')
                ++i; // an escaped brace
            else
                return i + 1;
        }
        return text.size();
    }
    const qsizetype semicolon = text.indexOf(u';', at);
    return semicolon < 0 ? text.size() : semicolon;
}

QString unbraced(const QString &value)
{
    if (!value.startsWith(u'{'))
        return value;
    QString inner = value.mid(1);
    if (inner.endsWith(u'}'))
        inner.chop(1);
    return inner.replace(QLatin1String("}}"), QLatin1String("}"));
}

} // namespace

QList<OdbcKeyword> odbcKeywords(const QString &odbc)
{
    QList<OdbcKeyword> keywords;
    qsizetype at = 0;
    while (at < odbc.size()) {
        const qsizetype equals = odbc.indexOf(u'=', at);
        const qsizetype semicolon = odbc.indexOf(u';', at);
        if (equals < 0 || (semicolon >= 0 && semicolon < equals)) { // a piece without a value
            at = semicolon < 0 ? odbc.size() : semicolon + 1;
            continue;
        }
        qsizetype valueAt = equals + 1;
        while (valueAt < odbc.size() && odbc[valueAt] == u' ')
            ++valueAt;
        const qsizetype end = valueEnd(odbc, valueAt);
        const qsizetype next = odbc.indexOf(u';', end);
        const qsizetype to = next < 0 ? odbc.size() : next + 1;
        keywords.append({odbc.mid(at, equals - at).trimmed(), unbraced(odbc.mid(valueAt, end - valueAt).trimmed()), at, to});
        at = to;
    }
    return keywords;
}

QString withoutKeyword(const QString &odbc, const QString &name)
{
    QString kept = odbc;
    const QList<OdbcKeyword> keywords = odbcKeywords(odbc);
    for (auto keyword = keywords.crbegin(); keyword != keywords.crend(); ++keyword) {
        if (keyword->name.compare(name, Qt::CaseInsensitive) == 0)
            kept.remove(keyword->from, keyword->to - keyword->from);
    }
    return kept;
}

QString withoutPasswords(const QString &text)
{
    static const QRegularExpression key(QStringLiteral(R"((?<![\w])(?:pwd|password)[^\w=;]*=\s*)"),
                                        QRegularExpression::CaseInsensitiveOption);
    QString masked;
    qsizetype copied = 0;
    for (const QRegularExpressionMatch &match : key.globalMatch(text)) {
        if (match.capturedStart() < copied)
            continue; // inside a value already masked
        const qsizetype valueAt = match.capturedEnd();
        masked.append(QStringView(text).mid(copied, valueAt - copied));
        masked += QLatin1String("****");
        copied = valueEnd(text, valueAt);
    }
    return masked.append(QStringView(text).mid(copied));
}
