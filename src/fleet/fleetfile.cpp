#include "fleetfile.h"

#include "serveraddress.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace {

constexpr std::array<std::string_view, 5> kFleetKeys = {"jobs", "server", "lock_timeout", "lock_retries", "lock_wait"};
constexpr std::array<std::string_view, 12> kServerKeys = {"server",  "mode", "odbc_env",     "label",        "encrypt",  "tls_ca",
                                                          "include", "exclude", "jobs", "lock_timeout", "lock_retries", "lock_wait"};

QString text(std::string_view view)
{
    return QString::fromUtf8(view.data(), qsizetype(view.size()));
}

int lineOf(const toml::source_region &source)
{
    return int(source.begin.line);
}

// A fault in the file: where, which key, and why.
struct Fault
{
    int line;
    QString key;
    QString why;
};

std::optional<Fault> unknownKey(const toml::table &table, std::span<const std::string_view> known)
{
    for (const auto &[key, value] : table) {
        if (std::find(known.begin(), known.end(), key.str()) == known.end())
            return Fault{lineOf(key.source()), text(key.str()), QStringLiteral("no such key")};
    }
    return std::nullopt;
}

std::optional<Fault> readText(const toml::table &table, std::string_view key, bool required, QString &into)
{
    const toml::node *node = table.get(key);
    if (!node)
        return required ? std::optional(Fault{lineOf(table.source()), text(key), QStringLiteral("missing")}) : std::nullopt;
    if (!node->is_string() || node->as_string()->get().empty())
        return Fault{lineOf(node->source()), text(key), QStringLiteral("must be a text that is not empty")};
    into = text(node->as_string()->get());
    return std::nullopt;
}

std::optional<Fault> readTexts(const toml::table &table, std::string_view key, QStringList &into)
{
    const toml::node *node = table.get(key);
    if (!node)
        return std::nullopt;
    const toml::array *array = node->as_array();
    if (!array || !array->is_homogeneous(toml::node_type::string))
        return Fault{lineOf(node->source()), text(key), QStringLiteral("must be a list of texts, such as [\"Quorvex*\"]")};
    for (const toml::node &item : *array) {
        into << text(item.as_string()->get());
        if (const QString refusal = patternRefusal(into.last()); !refusal.isEmpty())
            return Fault{lineOf(item.source()), text(key), QStringLiteral("'%1' is not a pattern: %2").arg(into.last(), refusal)};
    }
    return std::nullopt;
}

std::optional<Fault> readCount(const toml::table &table, std::string_view key, int least, std::optional<int> &into)
{
    const toml::node *node = table.get(key);
    if (!node)
        return std::nullopt;
    const std::optional<int64_t> value = node->value_exact<int64_t>();
    if (!value || *value < least || *value > std::numeric_limits<int>::max())
        return Fault{lineOf(node->source()), text(key), QStringLiteral("must be a whole number from %1 up").arg(least)};
    into = int(*value);
    return std::nullopt;
}

std::optional<Fault> readLockKeys(const toml::table &table, FleetLockKeys &into)
{
    std::optional<Fault> fault = readCount(table, "lock_timeout", 0, into.lockTimeout);
    if (!fault)
        fault = readCount(table, "lock_retries", 0, into.lockRetries);
    if (!fault)
        fault = readCount(table, "lock_wait", 0, into.lockWait);
    return fault;
}

std::optional<Fault> readServer(const toml::table &table, const QList<FleetFileServer> &earlier,
                                const FleetServerCheck &check, FleetFileServer &server)
{
    server.line = lineOf(table.source());
    std::optional<Fault> fault = unknownKey(table, kServerKeys);
    if (!fault)
        fault = readText(table, "odbc_env", false, server.odbcEnv);
    if (!fault)
        fault = readText(table, "server", server.odbcEnv.isEmpty(), server.server);
    if (!fault)
        fault = readText(table, "mode", true, server.mode);
    if (!fault)
        fault = readText(table, "label", false, server.label);
    if (!fault)
        fault = readText(table, "encrypt", false, server.encrypt);
    if (!fault)
        fault = readText(table, "tls_ca", false, server.tlsCa);
    if (!fault)
        fault = readTexts(table, "include", server.patterns.include);
    if (!fault)
        fault = readTexts(table, "exclude", server.patterns.exclude);
    if (!fault)
        fault = readCount(table, "jobs", 1, server.jobs);
    if (!fault)
        fault = readLockKeys(table, server.locks);
    if (fault)
        return fault;
    if (const std::optional<FleetRefusal> refusal = check(server)) {
        const toml::node *node = table.get(refusal->key.toStdString());
        return Fault{lineOf(node ? node->source() : table.source()), refusal->key, refusal->reason};
    }
    // Compared by where they lead, not by how they are written.
    for (const FleetFileServer &other : earlier) {
        if (sameServer(other.reach, server.reach))
            return Fault{server.line, QStringLiteral("server"),
                         QStringLiteral("'%1' and '%2' of line %3 reach one server: its databases would be run twice at once")
                             .arg(server.server, other.server)
                             .arg(other.line)};
    }
    return std::nullopt;
}

std::optional<Fault> readFleet(const toml::table &root, const FleetServerCheck &check, FleetFile &fleet)
{
    if (std::optional<Fault> fault = unknownKey(root, kFleetKeys))
        return fault;
    if (std::optional<Fault> fault = readCount(root, "jobs", 1, fleet.jobs))
        return fault;
    if (std::optional<Fault> fault = readLockKeys(root, fleet.locks))
        return fault;
    const toml::array *servers = root["server"].as_array();
    if (!servers || servers->empty() || !servers->is_homogeneous(toml::node_type::table))
        return Fault{servers ? lineOf(servers->source()) : 1, QStringLiteral("server"),
                     QStringLiteral("give each server as a [[server]] table")};
    for (const toml::node &node : *servers) {
        FleetFileServer server;
        if (std::optional<Fault> fault = readServer(*node.as_table(), fleet.servers, check, server))
            return fault;
        fleet.servers << server;
    }
    return std::nullopt;
}

} // namespace

FleetFileReading readFleetFile(const QString &path, const FleetServerCheck &check)
{
    // A FIFO or a device would be read for ever.
    QFile file(path);
    QString unread;
    if (!QFileInfo::exists(path))
        unread = QStringLiteral("no such file");
    else if (!QFileInfo(path).isFile())
        unread = QStringLiteral("not a regular file");
    else if (!file.open(QIODevice::ReadOnly))
        unread = file.errorString();
    if (!unread.isEmpty())
        return {std::nullopt, QStringLiteral("cannot read the fleet file %1: %2").arg(path, unread), {}};
    const QByteArray bytes = file.readAll();
    FleetFile fleet;
    std::optional<Fault> fault;
    try {
        const toml::table root = toml::parse(std::string_view(bytes.constData(), size_t(bytes.size())));
        fault = readFleet(root, check, fleet);
    } catch (const toml::parse_error &error) {
        return {std::nullopt, QStringLiteral("%1:%2: %3").arg(path).arg(lineOf(error.source())).arg(text(error.description())), {}};
    }
    if (fault)
        return {std::nullopt, QStringLiteral("%1:%2: key '%3': %4").arg(path).arg(fault->line).arg(fault->key, fault->why), {}};
    return {fleet, QString(), QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex()};
}
