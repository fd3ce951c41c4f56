#include "fakesqltypes.h"

#include "fakedatabase.h"

#include <array>
#include <cmath>

namespace {

enum class Family { Integer, Decimal, Approximate, FixedText, VariableText, LongText, Date, Other };

struct TypeRule
{
    QLatin1StringView name;
    Family family;
    int maxLength; // 0: takes no width
    bool takesMax;
};

constexpr std::array kTypes = {
    TypeRule{QLatin1StringView("bigint"), Family::Integer, 0, false},
    TypeRule{QLatin1StringView("int"), Family::Integer, 0, false},
    TypeRule{QLatin1StringView("smallint"), Family::Integer, 0, false},
    TypeRule{QLatin1StringView("tinyint"), Family::Integer, 0, false},
    TypeRule{QLatin1StringView("bit"), Family::Integer, 0, false},
    TypeRule{QLatin1StringView("decimal"), Family::Decimal, 38, false},
    TypeRule{QLatin1StringView("numeric"), Family::Decimal, 38, false},
    TypeRule{QLatin1StringView("money"), Family::Decimal, 0, false},
    TypeRule{QLatin1StringView("smallmoney"), Family::Decimal, 0, false},
    TypeRule{QLatin1StringView("float"), Family::Approximate, 53, false},
    TypeRule{QLatin1StringView("real"), Family::Approximate, 0, false},
    TypeRule{QLatin1StringView("char"), Family::FixedText, 8000, false},
    TypeRule{QLatin1StringView("nchar"), Family::FixedText, 4000, false},
    TypeRule{QLatin1StringView("varchar"), Family::VariableText, 8000, true},
    TypeRule{QLatin1StringView("nvarchar"), Family::VariableText, 4000, true},
    TypeRule{QLatin1StringView("text"), Family::LongText, 0, false},
    TypeRule{QLatin1StringView("ntext"), Family::LongText, 0, false},
    TypeRule{QLatin1StringView("datetime"), Family::Date, 0, false},
    TypeRule{QLatin1StringView("smalldatetime"), Family::Date, 0, false},
    TypeRule{QLatin1StringView("date"), Family::Date, 0, false},
    TypeRule{QLatin1StringView("datetime2"), Family::Date, 7, false},
    TypeRule{QLatin1StringView("time"), Family::Date, 7, false},
    TypeRule{QLatin1StringView("datetimeoffset"), Family::Date, 7, false},
    TypeRule{QLatin1StringView("binary"), Family::Other, 8000, false},
    TypeRule{QLatin1StringView("varbinary"), Family::Other, 8000, true},
    TypeRule{QLatin1StringView("image"), Family::Other, 0, false},
    TypeRule{QLatin1StringView("uniqueidentifier"), Family::Other, 0, false},
    TypeRule{QLatin1StringView("xml"), Family::Other, 0, false},
    TypeRule{QLatin1StringView("sql_variant"), Family::Other, 0, false},
    TypeRule{QLatin1StringView("timestamp"), Family::Other, 0, false},
};

const TypeRule *ruleFor(const QString &type)
{
    for (const TypeRule &rule : kTypes) {
        if (type.compare(rule.name, Qt::CaseInsensitive) == 0)
            return &rule;
    }
    return nullptr;
}

Family familyOf(const QString &type)
{
    const TypeRule *rule = ruleFor(type);
    return rule ? rule->family : Family::Other;
}

bool holdsNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
        return true;
    default:
        return false;
    }
}

QString withoutTrailingBlanks(const QString &text)
{
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.left(end);
}

DbStatus conversionFailure(const QString &text, const QString &type)
{
    return DbStatus::failure(
        QStringLiteral("Conversion failed when converting the nvarchar value '%1' to data type %2.").arg(text, type),
        245);
}

DbStatus toInteger(const QString &type, QVariant &value)
{
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float) {
        value = qlonglong(std::trunc(value.toDouble()));
        return DbStatus::success();
    }
    if (holdsNumber(value)) {
        value = value.toLongLong();
        return DbStatus::success();
    }
    const QString text = value.toString().trimmed();
    bool ok = text.isEmpty();
    const qlonglong number = ok ? 0 : text.toLongLong(&ok);
    if (!ok)
        return conversionFailure(value.toString(), type);
    value = number;
    return DbStatus::success();
}

DbStatus toReal(const QString &type, QVariant &value)
{
    if (holdsNumber(value)) {
        value = value.toDouble();
        return DbStatus::success();
    }
    const QString text = value.toString().trimmed();
    bool ok = text.isEmpty();
    const double number = ok ? 0.0 : text.toDouble(&ok);
    if (!ok)
        return DbStatus::failure(QStringLiteral("Error converting data type nvarchar to %1.").arg(type), 8114);
    value = number;
    return DbStatus::success();
}

DbStatus toText(const FakeColumn &column, Family family, QVariant &value)
{
    QString text = holdsNumber(value) ? sqlText(value) : value.toString();
    if (column.length > 0 && text.size() > column.length) {
        // Blanks beyond the width are cut off silently; anything else is refused.
        if (withoutTrailingBlanks(text).size() > column.length)
            return DbStatus::failure(QStringLiteral("String or binary data would be truncated."), 8152);
        text.truncate(column.length);
    }
    if (family == Family::FixedText && column.length > 0)
        text = text.leftJustified(column.length, u' ');
    value = text;
    return DbStatus::success();
}

bool isNumericType(const QString &type)
{
    const Family family = familyOf(type);
    return family == Family::Integer || family == Family::Decimal || family == Family::Approximate;
}

} // namespace

DbStatus prepareColumn(FakeColumn &column, int ordinal)
{
    column.type = column.type.toLower();
    const TypeRule *rule = ruleFor(column.type);
    if (!rule) {
        return DbStatus::failure(
            QStringLiteral("Column, parameter, or variable #%1: Cannot find data type %2.")
                .arg(ordinal)
                .arg(column.type),
            2715);
    }
    if (column.length != 0 && rule->maxLength == 0) {
        return DbStatus::failure(
            QStringLiteral("Column, parameter, or variable #%1: Cannot specify a column width on data type %2.")
                .arg(ordinal)
                .arg(column.type),
            2716);
    }
    if (column.length == -1 && !rule->takesMax)
        return DbStatus::failure(QStringLiteral("Incorrect syntax near 'max'."), 102);
    if (column.length < -1) {
        return DbStatus::failure(QStringLiteral("The length or precision %1 is invalid.").arg(column.length),
                                 1001);
    }
    if (column.length > rule->maxLength) {
        return DbStatus::failure(
            QStringLiteral("The size (%1) given to the column '%2' exceeds the maximum allowed for any data type (%3).")
                .arg(column.length)
                .arg(column.name)
                .arg(rule->maxLength),
            131);
    }
    if (column.length == 0 && (rule->family == Family::FixedText || rule->family == Family::VariableText))
        column.length = 1;
    if (column.identity && rule->family != Family::Integer && rule->family != Family::Decimal) {
        return DbStatus::failure(
            QStringLiteral("Identity column '%1' must be of data type int, bigint, smallint, tinyint, or decimal or "
                           "numeric with a scale of 0, and constrained to be nonnullable.")
                .arg(column.name),
            2749);
    }
    if (column.identity)
        column.notNull = true;
    return DbStatus::success();
}

DbStatus convertForColumn(const FakeColumn &column, QVariant &value)
{
    if (value.isNull())
        return DbStatus::success();
    const Family family = familyOf(column.type);
    switch (family) {
    case Family::Integer:
        return toInteger(column.type, value);
    case Family::Decimal:
    case Family::Approximate:
        return toReal(column.type, value);
    case Family::FixedText:
    case Family::VariableText:
    case Family::LongText:
        return toText(column, family, value);
    case Family::Date:
    case Family::Other:
        break;
    }
    return DbStatus::success();
}

DbStatus convertForComparison(const FakeColumn &column, QVariant &literal)
{
    if (literal.isNull())
        return DbStatus::success();
    if (isNumericType(column.type))
        return convertForColumn(column, literal);
    literal = holdsNumber(literal) ? sqlText(literal) : literal.toString();
    return DbStatus::success();
}

bool sqlEquals(const FakeColumn &column, const QVariant &stored, const QVariant &literal)
{
    if (stored.isNull() || literal.isNull())
        return false;
    if (isNumericType(column.type))
        return stored.toDouble() == literal.toDouble();
    const QString storedText = withoutTrailingBlanks(holdsNumber(stored) ? sqlText(stored) : stored.toString());
    return storedText.compare(withoutTrailingBlanks(literal.toString()), Qt::CaseInsensitive) == 0;
}

QVariant characterMaximumLength(const FakeColumn &column)
{
    switch (familyOf(column.type)) {
    case Family::FixedText:
    case Family::VariableText:
        return column.length;
    case Family::LongText:
        return column.type == QLatin1String("ntext") ? 1073741823 : 2147483647;
    default:
        return QVariant();
    }
}

QString sqlText(const QVariant &value)
{
    if (value.isNull())
        return QStringLiteral("NULL");
    if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
        return QString::number(value.toDouble(), 'g', 15);
    return value.toString();
}

