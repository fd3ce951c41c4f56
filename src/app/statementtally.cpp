#include "statementtally.h"

#include <QRegularExpression>

namespace {

constexpr int kObjectExists = 2714;
constexpr int kColumnExists = 2705;
constexpr int kDatabaseExists = 1801;
constexpr int kCannotDropMissing = 3701;

bool startsWith(const QString &text, const char *prefix)
{
    return text.startsWith(QLatin1String(prefix), Qt::CaseInsensitive);
}

QString viewName(const QString &definition)
{
    static const QRegularExpression name(QStringLiteral("^CREATE VIEW\\s+(?:\\[?dbo\\]?\\.)?\\[?(\\w+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    return name.match(definition).captured(1);
}

QString firstLine(const QString &text, int width)
{
    const QString line = text.section(QLatin1Char('\n'), 0, 0);
    return line.size() > width ? line.left(width - 3) + QLatin1String("...") : line;
}

} // namespace

StatementResult classify(const StatementOutcome &outcome)
{
    if (outcome.status.ok)
        return StatementResult::Succeeded;
    const int number = outcome.status.nativeError;
    const QString &message = outcome.status.message;
    if (number == kObjectExists || number == kColumnExists || number == kDatabaseExists
        || message.contains(QLatin1String("already exists")) || message.contains(QLatin1String("duplicate column name")))
        return StatementResult::AlreadyExisted;
    if (startsWith(outcome.text, "drop ")
        && (number == kCannotDropMissing || message.contains(QLatin1String("no such table"))
            || message.contains(QLatin1String("no such view"))))
        return StatementResult::NotThereToDrop;
    return StatementResult::Failed;
}

QString resultName(StatementResult result)
{
    switch (result) {
    case StatementResult::Succeeded:
        return QStringLiteral("succeeded");
    case StatementResult::AlreadyExisted:
        return QStringLiteral("already existed");
    case StatementResult::NotThereToDrop:
        return QStringLiteral("not there to drop");
    case StatementResult::Failed:
        return QStringLiteral("failed");
    }
    Q_UNREACHABLE();
}

void StatementTally::add(const StatementOutcome &outcome)
{
    ++m_sent;
    const StatementResult result = classify(outcome);
    ++m_byResult[int(result)];
    const bool succeeded = result == StatementResult::Succeeded;
    if (result == StatementResult::Failed)
        m_failures.append({m_sent, outcome});
    if (startsWith(outcome.text, "CREATE VIEW")) {
        if (succeeded)
            ++m_viewsCreated;
        else if (result == StatementResult::Failed)
            m_viewsFailed << viewName(outcome.text);
    }
    if (!succeeded)
        return;
    static const QRegularExpression addColumn(QStringLiteral("^ALTER TABLE\\s+\\S+\\s+ADD\\s"),
                                              QRegularExpression::CaseInsensitiveOption);
    if (addColumn.match(outcome.text).hasMatch())
        ++m_columnsAdded;
    else if (startsWith(outcome.text, "Insert Into tblPartyInfo") && outcome.phase == QLatin1String("chart of accounts"))
        ++m_accounts;
    else if (startsWith(outcome.text, "Insert") && outcome.phase == QLatin1String("tables"))
        ++m_builtInRows;
}

QString StatementTally::summary() const
{
    QString text;
    const auto line = [&text](const QString &label, const QString &value) {
        text += label.leftJustified(34, QLatin1Char(' ')) + value + QLatin1Char('\n');
    };
    line(QStringLiteral("Statements sent:"), QString::number(m_sent));
    line(QStringLiteral("  succeeded:"), QString::number(count(StatementResult::Succeeded)));
    line(QStringLiteral("  refused, already existed:"), QString::number(count(StatementResult::AlreadyExisted)));
    line(QStringLiteral("  refused, not there to drop:"), QString::number(count(StatementResult::NotThereToDrop)));
    line(QStringLiteral("  failed for another reason:"), QString::number(count(StatementResult::Failed)));
    line(QStringLiteral("Columns added:"), QString::number(m_columnsAdded));
    line(QStringLiteral("Views created:"), QString::number(m_viewsCreated));
    line(QStringLiteral("Views failed:"),
         QString::number(m_viewsFailed.size())
             + (m_viewsFailed.isEmpty() ? QString() : QLatin1String(" (") + m_viewsFailed.join(QLatin1String(", ")) + QLatin1Char(')')));
    line(QStringLiteral("Built-in rows written:"), QString::number(m_builtInRows));
    line(QStringLiteral("Accounts written:"), QString::number(m_accounts));
    if (!m_failures.isEmpty()) {
        text += QLatin1String("Failures:\n");
        for (const Failure &failure : m_failures) {
            text += QStringLiteral("  #%1 [%2] %3\n      %4\n")
                        .arg(failure.index)
                        .arg(failure.outcome.phase, firstLine(failure.outcome.text, 100),
                             failure.outcome.status.message);
        }
    }
    return text;
}
