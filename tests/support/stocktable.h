#pragma once

#include "fakedatabase.h"

// The stock table that only some older databases have, with the columns that
// the Stock view reads: no run creates it.
inline void addStockTable(FakeDatabase &database)
{
    database.createTable(QStringLiteral("tblStock"),
                         {{QStringLiteral("Type"), QStringLiteral("nvarchar"), 50},
                          {QStringLiteral("Units"), QStringLiteral("float")},
                          {QStringLiteral("UnitPrice"), QStringLiteral("float")},
                          {QStringLiteral("Issue"), QStringLiteral("float")},
                          {QStringLiteral("VDate"), QStringLiteral("datetime")},
                          {QStringLiteral("BrandName"), QStringLiteral("nvarchar"), 50}});
}
