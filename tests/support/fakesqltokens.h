#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <optional>

// The words, names, literals and punctuation of one statement, as far as the
// fake server needs to tell them apart.
struct FakeSqlToken
{
    enum class Kind { Word, Bracketed, String, Number, Symbol };

    Kind kind = Kind::Symbol;
    QString text; // a name without its brackets, a string without its quotes
    qsizetype position = 0; // where the token starts in the statement
};

// nullopt when a quote or a bracket is left open.
std::optional<QList<FakeSqlToken>> tokenizeSql(const QString &sql);

// Walks the tokens of one statement. Keywords compare without case; a name in
// brackets is never taken for a keyword.
class FakeSqlCursor
{
public:
    explicit FakeSqlCursor(QList<FakeSqlToken> tokens);

    bool atEnd() const { return m_index >= m_tokens.size(); }
    // The token at hand; after the last one, an empty symbol at the end.
    const FakeSqlToken &peek(qsizetype ahead = 0) const;
    void skip(qsizetype count = 1) { m_index += count; }
    qsizetype index() const { return m_index; }

    bool isKeyword(QLatin1StringView word, qsizetype ahead = 0) const;
    bool acceptKeyword(QLatin1StringView word);
    bool acceptSymbol(QChar symbol);
    // A bare or bracketed name.
    std::optional<QString> name();
    // A name with an optional owner (`dbo.`, `[dbo].`), returned without it.
    std::optional<QString> objectName();
    // A string or number literal, or NULL (a null QVariant), with an optional sign.
    std::optional<QVariant> literal();

private:
    QList<FakeSqlToken> m_tokens;
    qsizetype m_index = 0;
    FakeSqlToken m_end;
};
