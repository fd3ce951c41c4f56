#pragma once

#include <QString>

#include <optional>

// The K-th of N parts of a fleet, so that N hosts given 1/N..N/N run it once.
struct FleetShard
{
    int part = 1; // K, from 1
    int parts = 1; // N
};

// "K/N" with 1 <= K <= N, else nothing.
std::optional<FleetShard> shardNamed(const QString &text);

QString shardText(const FleetShard &shard);

// Whether the database falls in the part. Decided by a fixed hash of its
// server and name alone, so a database added to a listing moves no other
// to another part, and every host agrees whatever it lists first.
bool inShard(const FleetShard &shard, const QString &server, const QString &database);
