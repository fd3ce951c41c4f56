#pragma once

#include <QByteArray>
#include <QStringList>

// Fixtures in tests/data hold statements, each followed by a line holding
// only GO, exactly as written from the texts the database expects.
QByteArray fixtureBytes(const QString &name);
QStringList fixtureStatements(const QString &name);

// Everything a run sends to a new database: the rebuilt tables' drops, then
// the table, view and chart phases.
QByteArray wholeRunFixtureBytes();
QStringList wholeRunFixtureStatements();
