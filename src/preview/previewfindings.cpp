#include "previewfindings.h"

#include "runplan.h"
#include "statementresult.h"

#include <QJsonObject>
#include <QRegularExpression>

namespace {

// "[dbo].[Table] ADD [Column]" and "[dbo].[Table] ALTER COLUMN [Column] [type] (width)".
const QRegularExpression kAddedColumn(QStringLiteral(R"(^ALTER TABLE \[dbo\]\.\[([^\]]+)\] ADD \[([^\]]+)\])"));
const QRegularExpression kWidenedColumn(
    QStringLiteral(R"(^ALTER TABLE \[dbo\]\.\[([^\]]+)\] ALTER COLUMN \[([^\]]+)\] \[[^\]]+\] \((\d+)\))"));
const QRegularExpression kCreatedTable(QStringLiteral(R"(^CREATE TABLE \[dbo\]\.\[([^\]]+)\])"));

std::optional<int> widthBefore(const QList<SchemaTable> &tables, const QString &table, const QString &column)
{
    for (const SchemaTable &known : tables) {
        if (!sameName(known.name, table))
            continue;
        for (const SchemaColumn &field : known.columns) {
            if (sameName(field.name, column))
                return field.length;
        }
    }
    return std::nullopt;
}

QString counted(int count, const char *one, const char *many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

} // namespace

PreviewFindings::PreviewFindings(DatabaseBefore before)
    : m_before(std::move(before))
{
}

void PreviewFindings::add(const StatementOutcome &outcome)
{
    if (classify(outcome) != StatementResult::Succeeded)
        return;
    switch (outcome.action) {
    case Action::AddColumn:
        // A new table's columns come with it.
        if (const QRegularExpressionMatch added = kAddedColumn.match(outcome.text);
            added.hasMatch() && !m_tablesCreated.contains(added.captured(1)))
            m_columnsAdded.append({added.captured(1), added.captured(2)});
        break;
    case Action::WidenColumn:
        if (const QRegularExpressionMatch widened = kWidenedColumn.match(outcome.text); widened.hasMatch()) {
            const int width = widened.captured(3).toInt();
            const std::optional<int> before = widthBefore(m_before.tables, widened.captured(1), widened.captured(2));
            if (before != width)
                m_widened.append({widened.captured(1), widened.captured(2), before, width});
        }
        break;
    case Action::CreateTable:
        if (const QRegularExpressionMatch created = kCreatedTable.match(outcome.text);
            created.hasMatch() && !rebuiltTables().contains(created.captured(1)))
            m_tablesCreated << created.captured(1);
        break;
    default:
        break;
    }
}

QStringList PreviewFindings::lines(const StatementTally &tally) const
{
    QStringList lines;
    if (!m_tablesCreated.isEmpty())
        lines << QStringLiteral("would create %1 with their columns: %2")
                     .arg(counted(int(m_tablesCreated.size()), "table", "tables"), m_tablesCreated.join(QLatin1String(", ")));
    if (!m_columnsAdded.isEmpty()) {
        QStringList columns;
        for (const auto &[table, column] : m_columnsAdded)
            columns << table + QLatin1Char('.') + column;
        lines << QStringLiteral("would add %1: %2")
                     .arg(counted(int(columns.size()), "column", "columns"), columns.join(QLatin1String(", ")));
    }
    for (const Widened &widened : m_widened)
        lines << QStringLiteral("would widen %1.%2 %3to %4")
                     .arg(widened.table, widened.column,
                          widened.from ? QStringLiteral("from %1 ").arg(*widened.from) : QString())
                     .arg(widened.to);
    lines << QLatin1String("would write ") + counted(tally.builtInRowsWritten(), "built-in row", "built-in rows");
    lines << QLatin1String("would insert ") + counted(tally.accountsWritten(), "account", "accounts");
    lines << QStringLiteral("would replace %1, %2")
                 .arg(counted(tally.viewsCreated(), "view", "views"),
                      counted(int(tally.sourceTablesMissing()), "source table missing", "source tables missing"));
    for (const auto &[table, rows] : m_before.rebuiltTableRows)
        lines << QStringLiteral("would discard %1 of %2").arg(counted(rows, "row", "rows"), table);
    if (!m_before.reportHeader.isEmpty()) {
        QStringList values;
        for (const auto &[column, value] : m_before.reportHeader)
            values << QStringLiteral("%1='%2'").arg(column, value);
        lines << QLatin1String("would discard the report header row: ") + values.join(QLatin1String(", "));
    }
    for (const QString &unread : m_before.timedOut)
        lines << QStringLiteral("could not tell what the run would discard: reading %1 timed out").arg(unread);
    return lines;
}

QJsonArray PreviewFindings::json(const StatementTally &tally) const
{
    const auto finding = [](const char *kind, std::initializer_list<std::pair<QString, QJsonValue>> fields) {
        QJsonObject object{{QStringLiteral("kind"), QLatin1String(kind)}};
        for (const auto &[key, value] : fields)
            object.insert(key, value);
        return object;
    };
    QJsonArray findings;
    for (const QString &table : m_tablesCreated)
        findings.append(finding("create", {{QStringLiteral("table"), table}}));
    for (const auto &[table, column] : m_columnsAdded)
        findings.append(finding("add", {{QStringLiteral("table"), table}, {QStringLiteral("column"), column}}));
    for (const Widened &widened : m_widened) {
        QJsonObject widen = finding("widen", {{QStringLiteral("table"), widened.table},
                                              {QStringLiteral("column"), widened.column},
                                              {QStringLiteral("to"), widened.to}});
        if (widened.from)
            widen.insert(QStringLiteral("from"), *widened.from);
        findings.append(widen);
    }
    findings.append(finding("write", {{QStringLiteral("rows"), tally.builtInRowsWritten()}}));
    findings.append(finding("insert", {{QStringLiteral("rows"), tally.accountsWritten()}}));
    findings.append(finding("replace", {{QStringLiteral("views"), tally.viewsCreated()},
                                        {QStringLiteral("sourceTablesMissing"), qint64(tally.sourceTablesMissing())}}));
    for (const auto &[table, rows] : m_before.rebuiltTableRows)
        findings.append(finding("discard", {{QStringLiteral("table"), table}, {QStringLiteral("rows"), rows}}));
    if (!m_before.reportHeader.isEmpty()) {
        QJsonArray values;
        for (const auto &[column, value] : m_before.reportHeader)
            values.append(QJsonObject{{QStringLiteral("column"), column}, {QStringLiteral("value"), value}});
        findings.append(finding("discard", {{QStringLiteral("reportHeader"), values}}));
    }
    for (const QString &unread : m_before.timedOut)
        findings.append(finding("unread", {{QStringLiteral("what"), unread}}));
    return findings;
}

QString wouldSummary(const QJsonArray &findings)
{
    int created = 0;
    int added = 0;
    int widened = 0;
    int discarded = 0;
    for (const QJsonValue &finding : findings) {
        const QString kind = finding[QLatin1String("kind")].toString();
        created += kind == QLatin1String("create") ? 1 : 0;
        added += kind == QLatin1String("add") ? 1 : 0;
        widened += kind == QLatin1String("widen") ? 1 : 0;
        discarded += kind == QLatin1String("discard") ? finding[QLatin1String("rows")].toInt(1) : 0;
    }
    return QStringLiteral("would create %1, add %2, widen %3, discard %4")
        .arg(counted(created, "table", "tables"), counted(added, "column", "columns"),
             counted(widened, "column", "columns"), counted(discarded, "row", "rows"));
}
