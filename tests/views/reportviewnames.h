#pragma once

#include "viewcatalog.h"

#include <QStringList>

// The catalogue's view names in the run's two orders.
inline QStringList createNames()
{
    QStringList names;
    for (const ReportView &view : reportViewsInCreateOrder())
        names << QString::fromUtf8(view.name);
    return names;
}

inline QStringList dropNames()
{
    QStringList names;
    for (std::string_view name : reportViewDropOrder())
        names << QString::fromUtf8(name);
    return names;
}
