#pragma once

#include <QString>

#include <string_view>

// One column that an existing table may lack, as the schema lists it. Every
// field is the text as it goes to the server; the case of a type name counts.
struct ColumnRow
{
    std::string_view table;
    std::string_view column;
    std::string_view type;
    std::string_view length;        // empty for types without one
    std::string_view defaultClause; // empty when the column has no default
    std::string_view nullText;
    bool endsInBlank = false;       // some statements end in one blank after the null text
};

// The "ALTER TABLE ... ADD" statement that adds the column, blanks as the
// application has always sent them.
QString addColumnStatement(const ColumnRow &row);
