#pragma once

#include <QString>
#include <QStringList>

// The tables that a report view reads, directly or through the report views
// it reads, and that no run creates: taken from the view texts ("dbo.X"). A
// database without one of them cannot hold the view. Names compare without
// case; an unknown view needs nothing.
QStringList tablesNoRunCreates(const QString &view);
