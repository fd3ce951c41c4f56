#include "fakesqltokens.h"

namespace {

bool startsWord(QChar c)
{
    return c.isLetter() || c == u'_' || c == u'@' || c == u'#';
}

bool continuesWord(QChar c)
{
    return startsWord(c) || c.isDigit() || c == u'$';
}

// Reads a text closed by `close`, where a doubled `close` stands for itself.
std::optional<QString> readEnclosed(const QString &sql, qsizetype &at, QChar close)
{
    QString text;
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != close) {
            text += sql[at];
        } else if (at + 1 < sql.size() && sql[at + 1] == close) {
            text += close;
            ++at;
        } else {
            ++at;
            return text;
        }
    }
    return std::nullopt;
}

qsizetype numberEnd(const QString &sql, qsizetype at)
{
    while (at < sql.size() && sql[at].isDigit())
        ++at;
    if (at < sql.size() && sql[at] == u'.') {
        ++at;
        while (at < sql.size() && sql[at].isDigit())
            ++at;
    }
    if (at + 1 < sql.size() && (sql[at] == u'e' || sql[at] == u'E')
        && (sql[at + 1].isDigit() || sql[at + 1] == u'+' || sql[at + 1] == u'-')) {
        at += 2;
        while (at < sql.size() && sql[at].isDigit())
            ++at;
    }
    return at;
}

} // namespace

std::optional<QList<FakeSqlToken>> tokenizeSql(const QString &sql)
{
    QList<FakeSqlToken> tokens;
    qsizetype at = 0;
    while (at < sql.size()) {
        const QChar c = sql[at];
        const QChar next = at + 1 < sql.size() ? sql[at + 1] : QChar();
        const qsizetype start = at;
        if (c.isSpace()) {
            ++at;
        } else if (c == u'-' && next == u'-') {
            while (at < sql.size() && sql[at] != u'\n')
                ++at;
        } else if (c == u'/' && next == u'*') {
            const qsizetype close = sql.indexOf(QLatin1String("*/"), at + 2);
            if (close < 0)
                return std::nullopt;
            at = close + 2;
        } else if (c == u'\'' || ((c == u'N' || c == u'n') && next == u'\'')) {
            if (c != u'\'')
                ++at;
            const std::optional<QString> text = readEnclosed(sql, at, u'\'');
            if (!text)
                return std::nullopt;
            tokens.append({FakeSqlToken::Kind::String, *text, start});
        } else if (c == u'[' || c == u'"') {
            const std::optional<QString> text = readEnclosed(sql, at, c == u'[' ? u']' : u'"');
            if (!text)
                return std::nullopt;
            tokens.append({FakeSqlToken::Kind::Bracketed, *text, start});
        } else if (c.isDigit() || (c == u'.' && next.isDigit())) {
            at = numberEnd(sql, at);
            tokens.append({FakeSqlToken::Kind::Number, sql.mid(start, at - start), start});
        } else if (startsWord(c)) {
            while (at < sql.size() && continuesWord(sql[at]))
                ++at;
            tokens.append({FakeSqlToken::Kind::Word, sql.mid(start, at - start), start});
        } else {
            ++at;
            tokens.append({FakeSqlToken::Kind::Symbol, QString(c), start});
        }
    }
    return tokens;
}

FakeSqlCursor::FakeSqlCursor(QList<FakeSqlToken> tokens)
    : m_tokens(std::move(tokens))
{
    m_end.position = m_tokens.isEmpty() ? 0 : m_tokens.last().position + m_tokens.last().text.size();
}

const FakeSqlToken &FakeSqlCursor::peek(qsizetype ahead) const
{
    const qsizetype at = m_index + ahead;
    return at < m_tokens.size() ? m_tokens[at] : m_end;
}

bool FakeSqlCursor::isKeyword(QLatin1StringView word, qsizetype ahead) const
{
    const FakeSqlToken &token = peek(ahead);
    return token.kind == FakeSqlToken::Kind::Word && token.text.compare(word, Qt::CaseInsensitive) == 0;
}

bool FakeSqlCursor::acceptKeyword(QLatin1StringView word)
{
    if (!isKeyword(word))
        return false;
    ++m_index;
    return true;
}

bool FakeSqlCursor::acceptSymbol(QChar symbol)
{
    if (atEnd() || peek().kind != FakeSqlToken::Kind::Symbol || peek().text != symbol)
        return false;
    ++m_index;
    return true;
}

std::optional<QString> FakeSqlCursor::name()
{
    const FakeSqlToken &token = peek();
    if (atEnd() || (token.kind != FakeSqlToken::Kind::Word && token.kind != FakeSqlToken::Kind::Bracketed))
        return std::nullopt;
    ++m_index;
    return token.text;
}

std::optional<QString> FakeSqlCursor::objectName()
{
    std::optional<QString> last = name();
    while (last && acceptSymbol(u'.'))
        last = name();
    return last;
}

std::optional<QVariant> FakeSqlCursor::literal()
{
    if (acceptKeyword(QLatin1StringView("NULL")))
        return QVariant();
    const bool negative = acceptSymbol(u'-');
    if (!negative)
        acceptSymbol(u'+');
    const FakeSqlToken &token = peek();
    if (atEnd())
        return std::nullopt;
    if (token.kind == FakeSqlToken::Kind::String && !negative) {
        ++m_index;
        return QVariant(token.text);
    }
    if (token.kind != FakeSqlToken::Kind::Number)
        return std::nullopt;
    ++m_index;
    const QString text = negative ? QLatin1Char('-') + token.text : token.text;
    bool whole = false;
    const qlonglong value = text.toLongLong(&whole);
    if (whole)
        return QVariant(value);
    return QVariant(text.toDouble());
}
