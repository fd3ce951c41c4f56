#include "namepatterns.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace {

QString hexEscaped(QChar c)
{
    return QStringLiteral("\\x{%1}").arg(c.unicode(), 0, 16);
}

// The pattern as an anchored regular expression, every character of the
// name's escaped; nothing when it is not a pattern, `why` then saying so.
std::optional<QString> expression(const QString &pattern, QString *why)
{
    QString expression;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == u'*') {
            expression += QLatin1String(".*");
        } else if (c == u'?') {
            expression += QLatin1Char('.');
        } else if (c == u']') {
            *why = QStringLiteral("a ] closes no [ (a literal ] is []])");
            return std::nullopt;
        } else if (c == u'\\') {
            *why = QStringLiteral("a backslash escapes nothing here (a literal * is [*], a literal [ is [[])");
            return std::nullopt;
        } else if (c != u'[') {
            expression += hexEscaped(c);
        } else {
            qsizetype at = i + 1;
            QString set = QStringLiteral("[");
            if (at < pattern.size() && pattern[at] == u'!') {
                set += QLatin1Char('^');
                ++at;
            }
            // A ] first in the set is one of its characters.
            const qsizetype first = at;
            for (; at < pattern.size() && (pattern[at] != u']' || at == first); ++at) {
                const bool range = at + 2 < pattern.size() && pattern[at + 1] == u'-' && pattern[at + 2] != u']';
                if (range && pattern[at + 2] < pattern[at]) {
                    *why = QStringLiteral("the range %1-%2 runs backwards").arg(pattern[at]).arg(pattern[at + 2]);
                    return std::nullopt;
                }
                set += hexEscaped(pattern[at]);
                if (range) {
                    set += QLatin1Char('-') + hexEscaped(pattern[at + 2]);
                    at += 2;
                }
            }
            if (at >= pattern.size()) {
                *why = QStringLiteral("a [ is not closed (a literal [ is [[])");
                return std::nullopt;
            }
            expression += set + QLatin1Char(']');
            i = at;
        }
    }
    return expression;
}

bool anyMatches(const QStringList &patterns, const QString &name)
{
    return std::any_of(patterns.begin(), patterns.end(), [&name](const QString &pattern) {
        QString why;
        const std::optional<QString> matching = expression(pattern, &why);
        // Patterns are checked when they are read: one that is none matches nothing.
        return matching
            && QRegularExpression(QRegularExpression::anchoredPattern(*matching),
                                  QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption)
                   .match(name)
                   .hasMatch();
    });
}

} // namespace

bool NamePatterns::admits(const QString &name) const
{
    return (include.isEmpty() || anyMatches(include, name)) && !anyMatches(exclude, name);
}

QString patternRefusal(const QString &pattern)
{
    QString why;
    if (pattern.isEmpty())
        return QStringLiteral("an empty pattern matches no name");
    return expression(pattern, &why) ? QString() : why;
}
