#pragma once

#include <QByteArray>
#include <QJsonObject>

// The index as one page that needs nothing but itself: what the invocation
// was (a preview says so at the top; a shard or a merge which parts), its
// totals, a row per server with its databases per outcome, the failures by
// message across the databases, each linked, then a row per database with
// the failures first and each one's messages grouped in its row, then a
// section for every database with more to tell, linked from its row. A click
// on a column's heading sorts the rows by it.
QByteArray fleetPage(const QJsonObject &index);
