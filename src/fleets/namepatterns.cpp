#include "namepatterns.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// * any text, ? one character, [...] one of a set ([!...] none of it); a
// slash is a character like any other, unlike in a path.
QRegularExpression globExpression(const QString &pattern)
{
    QString expression;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        const qsizetype closing = c == u'[' ? pattern.indexOf(u']', i + 2) : -1;
        if (c == u'*') {
            expression += QLatin1String(".*");
        } else if (c == u'?') {
            expression += QLatin1Char('.');
        } else if (closing > 0) {
            QString set = pattern.mid(i + 1, closing - i - 1).replace(QLatin1Char('\\'), QLatin1String("\\\\"));
            if (set.startsWith(u'!'))
                set[0] = u'^';
            expression += QLatin1Char('[') + set + QLatin1Char(']');
            i = closing;
        } else {
            expression += QRegularExpression::escape(c);
        }
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(expression), QRegularExpression::CaseInsensitiveOption);
}

bool anyMatches(const QStringList &patterns, const QString &name)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&name](const QString &pattern) { return globExpression(pattern).match(name).hasMatch(); });
}

} // namespace

bool NamePatterns::admits(const QString &name) const
{
    return (include.isEmpty() || anyMatches(include, name)) && !anyMatches(exclude, name);
}
