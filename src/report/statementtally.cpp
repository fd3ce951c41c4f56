#include "statementtally.h"

#include <QRegularExpression>

namespace {

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

void StatementTally::add(const StatementOutcome &outcome)
{
    ++m_sent;
    const StatementResult result = classify(outcome);
    ++m_byResult[int(result)];
    if (result == StatementResult::Failed) {
        m_failures.append({m_sent, outcome});
        if (outcome.action == Action::CreateView)
            m_viewsFailed << viewName(outcome.text);
    }
    if (result != StatementResult::Succeeded)
        return;
    switch (outcome.action) {
    case Action::AddColumn:
        ++m_columnsAdded;
        break;
    case Action::CreateView:
        ++m_viewsCreated;
        break;
    case Action::InsertBuiltInRow:
        ++m_builtInRows;
        break;
    case Action::InsertAccount:
        ++m_accounts;
        break;
    default:
        break;
    }
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
                        .arg(phaseName(failure.outcome.phase), firstLine(failure.outcome.text, 100),
                             failure.outcome.status.message);
        }
    }
    return text;
}
