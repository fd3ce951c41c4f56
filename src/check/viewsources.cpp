#include "viewsources.h"

#include "expectedschema.h"
#include "viewcatalog.h"

#include <QHash>
#include <QRegularExpression>

namespace {

QString lowered(std::string_view name)
{
    return QString::fromUtf8(name.data(), qsizetype(name.size())).toLower();
}

// Every name the definition gives as dbo.X, its own first.
QStringList namesIn(std::string_view definition)
{
    static const QRegularExpression name(QStringLiteral(R"(\bdbo\.(\w+))"), QRegularExpression::CaseInsensitiveOption);
    QStringList names;
    for (const QRegularExpressionMatch &match : name.globalMatch(QString::fromUtf8(definition.data(), qsizetype(definition.size()))))
        names << match.captured(1);
    return names;
}

QHash<QString, QStringList> outsideTablesByView()
{
    QStringList created;
    for (const SchemaTable &table : tablePhaseSchema())
        created << table.name.toLower();
    QHash<QString, QStringList> outside;
    // Each view comes after the views it reads, so theirs are known by then.
    for (const ReportView &view : reportViewsInCreateOrder()) {
        QStringList &needs = outside[lowered(view.name)];
        for (const QString &name : namesIn(view.definition).mid(1)) {
            const auto read = outside.constFind(name.toLower());
            const QStringList found = read != outside.constEnd() ? *read
                : created.contains(name.toLower())              ? QStringList()
                                                                : QStringList{name};
            for (const QString &table : found) {
                if (!needs.contains(table, Qt::CaseInsensitive))
                    needs << table;
            }
        }
    }
    return outside;
}

} // namespace

QStringList tablesNoRunCreates(const QString &view)
{
    static const QHash<QString, QStringList> outside = outsideTablesByView();
    return outside.value(view.toLower());
}
