#include "statementtally.h"

#include "printabletext.h"

#include <QJsonArray>

#include <algorithm>

namespace {

constexpr int kShownMessages = 20;

QString firstLine(const QString &text, int width)
{
    const QString line = text.section(QLatin1Char('\n'), 0, 0);
    return line.size() > width ? line.left(width - 3) + QLatin1String("...") : line;
}

} // namespace

void StatementTally::add(const StatementOutcome &outcome)
{
    ++m_sent;
    m_lastPhase = outcome.phase;
    ++m_phases[int(outcome.phase)].sent;
    m_phases[int(outcome.phase)].nanoseconds += outcome.nanoseconds;
    const StatementResult result = classify(outcome);
    ++m_byResult[int(result)];
    if (result == StatementResult::SourceTableMissing)
        m_missingSources.append({createdViewName(outcome.text), missingSourceTable(outcome)});
    if (isUnexpected(result)) {
        const QString message = result == StatementResult::Failed
            ? outcome.status.message : resultName(result) + QLatin1String(": ") + outcome.status.message;
        if (!m_groupOf.contains(message)) {
            m_groupOf.insert(message, m_groups.size());
            m_groups.append({message, {}});
        }
        m_groups[m_groupOf.value(message)].statements.append({m_sent, outcome.phase, outcome.text});
        if (outcome.action == Action::CreateView)
            ++m_viewsFailed;
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

QString failureListing(std::span<const FailureGroup> groups, qsizetype statementsEach)
{
    QString text;
    for (const FailureGroup &group : groups) {
        text += QStringLiteral("%1  %2\n").arg(group.statements.size(), 6).arg(escapedControls(group.message));
        for (const FailureGroup::Statement &statement : group.statements.first(std::min(statementsEach, group.statements.size())))
            text += QStringLiteral("        #%1 [%2] %3\n")
                        .arg(statement.index)
                        .arg(phaseName(statement.phase), escapedControls(firstLine(statement.text, 100)));
    }
    return text;
}

QList<FailureGroup> StatementTally::failureGroups(std::optional<Phase> phase) const
{
    QList<FailureGroup> groups;
    for (FailureGroup group : m_groups) {
        if (phase)
            group.statements.removeIf([&phase](const FailureGroup::Statement &statement) { return statement.phase != *phase; });
        if (!group.statements.isEmpty())
            groups.append(group);
    }
    std::stable_sort(groups.begin(), groups.end(), [](const FailureGroup &a, const FailureGroup &b) {
        return a.statements.size() > b.statements.size();
    });
    return groups;
}

QString StatementTally::summary(bool verbose, bool reported) const
{
    QString text;
    const auto line = [&text](const QString &label, int value) {
        text += label.leftJustified(34, QLatin1Char(' ')) + QString::number(value) + QLatin1Char('\n');
    };
    line(QStringLiteral("Statements sent:"), m_sent);
    line(QStringLiteral("  succeeded:"), count(StatementResult::Succeeded));
    line(QStringLiteral("  refused, already existed:"), count(StatementResult::AlreadyExisted));
    line(QStringLiteral("  refused, not there to drop:"), count(StatementResult::NotThereToDrop));
    line(QStringLiteral("  refused, source table missing:"), count(StatementResult::SourceTableMissing));
    line(QStringLiteral("  timed out:"), count(StatementResult::TimedOut));
    line(QStringLiteral("  blocked (locks held elsewhere):"), count(StatementResult::Blocked));
    line(QStringLiteral("  failed for another reason:"), count(StatementResult::Failed));
    line(QStringLiteral("Columns added:"), m_columnsAdded);
    line(QStringLiteral("Views created:"), m_viewsCreated);
    line(QStringLiteral("Views failed:"), m_viewsFailed);
    line(QStringLiteral("Built-in rows written:"), m_builtInRows);
    line(QStringLiteral("Accounts written:"), m_accounts);
    for (const MissingSource &missing : m_missingSources)
        text += QStringLiteral("Not installable here: view %1 (source table missing: %2)\n").arg(missing.view, missing.table);
    if (m_groups.isEmpty())
        return text;

    text += QStringLiteral("Failures by message: %1 %2, %3 %4\n")
                .arg(m_groups.size())
                .arg(m_groups.size() == 1 ? "message" : "messages")
                .arg(unexpected())
                .arg(unexpected() == 1 ? "statement" : "statements");
    const QList<FailureGroup> groups = failureGroups();
    const qsizetype shown = verbose ? groups.size() : std::min<qsizetype>(groups.size(), kShownMessages);
    text += failureListing(std::span(groups).first(shown), verbose ? m_sent : 1);
    if (shown < groups.size()) {
        int statements = 0;
        for (qsizetype i = shown; i < groups.size(); ++i)
            statements += int(groups[i].statements.size());
        text += QStringLiteral("%1 more messages (%2 statements) %3\n")
                    .arg(groups.size() - shown)
                    .arg(statements)
                    .arg(reported ? QStringLiteral("in the report") : QStringLiteral("with --verbose"));
    }
    return text;
}

QJsonObject StatementTally::json() const
{
    QJsonObject counts{{QStringLiteral("sent"), m_sent},
                       {QStringLiteral("columnsAdded"), m_columnsAdded},
                       {QStringLiteral("viewsCreated"), m_viewsCreated},
                       {QStringLiteral("viewsFailed"), m_viewsFailed},
                       {QStringLiteral("builtInRowsWritten"), m_builtInRows},
                       {QStringLiteral("accountsWritten"), m_accounts}};
    for (int result = 0; result < kStatementResults; ++result)
        counts.insert(resultKey(StatementResult(result)), m_byResult[result]);
    QJsonArray failures;
    for (const FailureGroup &group : failureGroups()) {
        QJsonArray indexes;
        for (const FailureGroup::Statement &statement : group.statements)
            indexes.append(statement.index);
        failures.append(QJsonObject{{QStringLiteral("message"), group.message},
                                    {QStringLiteral("count"), indexes.size()},
                                    {QStringLiteral("statements"), indexes}});
    }
    QJsonArray missing;
    for (const MissingSource &source : m_missingSources)
        missing.append(QJsonObject{{QStringLiteral("view"), source.view}, {QStringLiteral("table"), source.table}});
    return {{QStringLiteral("counts"), counts},
            {QStringLiteral("failures"), failures},
            {QStringLiteral("sourceTablesMissing"), missing}};
}

QJsonArray StatementTally::failedStatements(qsizetype shown) const
{
    QList<std::pair<const FailureGroup::Statement *, const QString *>> failed;
    for (const FailureGroup &group : m_groups) {
        for (const FailureGroup::Statement &statement : group.statements)
            failed.append({&statement, &group.message});
    }
    std::sort(failed.begin(), failed.end(), [](const auto &a, const auto &b) { return a.first->index < b.first->index; });
    QJsonArray statements;
    for (const auto &[statement, message] : failed.first(std::min(shown, failed.size())))
        statements.append(QJsonObject{{QStringLiteral("index"), statement->index},
                                      {QStringLiteral("phase"), phaseName(statement->phase)},
                                      {QStringLiteral("message"), *message},
                                      {QStringLiteral("statement"), firstLine(statement->text, 120)}});
    return statements;
}
