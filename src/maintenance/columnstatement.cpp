#include "columnstatement.h"

QString addColumnStatement(const ColumnRow &row)
{
    QString statement = QLatin1String("ALTER TABLE [dbo].[") + QString::fromUtf8(row.table)
        + QLatin1String("] ADD [") + QString::fromUtf8(row.column) + QLatin1String("] [")
        + QString::fromUtf8(row.type) + QLatin1Char(']');
    if (!row.length.empty())
        statement += QLatin1String(" (") + QString::fromUtf8(row.length) + QLatin1Char(')');
    if (!row.defaultClause.empty())
        statement += QLatin1Char(' ') + QString::fromUtf8(row.defaultClause);
    statement += QLatin1Char(' ') + QString::fromUtf8(row.nullText);
    if (row.endsInBlank)
        statement += QLatin1Char(' ');
    return statement;
}
