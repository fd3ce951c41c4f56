#include "fleetdisplay.h"

#include "commandoptions.h"
#include "printabletext.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr qint64 kRedrawMilliseconds = 100;
constexpr char kClearLine[] = "\r\x1b[K";
constexpr qsizetype kNameColumn = 30;

} // namespace

FleetDisplay::FleetDisplay(CommandContext &context, bool live)
    : m_context(context)
    , m_live(live)
{
}

void FleetDisplay::started(const FleetRecord &fleet, qsizetype database)
{
    const QMutexLocker lock(&m_mutex);
    m_total = fleet.databases.size();
    m_running[database].name = escapedControls(fleet.databases[database].name);
    draw();
}

void FleetDisplay::advanced(qsizetype database, const QString &phase, int percent)
{
    const QMutexLocker lock(&m_mutex);
    Running &running = m_running[database];
    running.phase = phase;
    running.percent = percent;
    if (!m_sinceDrawn.isValid() || m_sinceDrawn.elapsed() >= kRedrawMilliseconds)
        draw();
}

void FleetDisplay::ended(qsizetype database, const QString &lines, bool failed, const QString &errors)
{
    const QMutexLocker lock(&m_mutex);
    m_running.erase(database);
    ++m_done;
    m_failed += failed ? 1 : 0;
    if (m_live)
        m_context.err << kClearLine;
    m_context.err << errors;
    m_context.err.flush();
    m_context.out << lines;
    m_context.out.flush();
    draw();
}

void FleetDisplay::finish()
{
    const QMutexLocker lock(&m_mutex);
    if (m_live && m_sinceDrawn.isValid())
        m_context.err << kClearLine;
    m_context.err.flush();
}

void FleetDisplay::draw()
{
    if (!m_live)
        return;
    QString line = QStringLiteral("%1/%2 done, %3 running, %4 failed")
                       .arg(m_done)
                       .arg(m_total)
                       .arg(m_running.size())
                       .arg(m_failed);
    QString separator = QStringLiteral(": ");
    for (const auto &[database, running] : m_running) {
        const QString more = running.phase.isEmpty() ? running.name
                                                     : QStringLiteral("%1 %2 %3%").arg(running.name, running.phase).arg(running.percent);
        if (line.size() + separator.size() + more.size() >= m_context.columns)
            break;
        line += separator + more;
        separator = QStringLiteral(", ");
    }
    m_context.err << kClearLine << line.left(m_context.columns - 1);
    m_context.err.flush();
    m_sinceDrawn.start();
}

void printFleetHeader(const QCommandLineParser &parser, const FleetWork &work, CommandContext &context)
{
    QString subject;
    if (parser.isSet(QStringLiteral("fleet")))
        subject = QStringLiteral("fleet %1, %2 servers").arg(parser.value(QStringLiteral("fleet"))).arg(work.servers.size());
    else if (parser.isSet(QStringLiteral("retry")))
        subject = QStringLiteral("what %1 left to do, %2 servers").arg(parser.value(QStringLiteral("retry"))).arg(work.servers.size());
    else
        subject = QStringLiteral("%1, mode %2").arg(work.servers.first().target, work.servers.first().mode);
    if (work.shard)
        subject += QStringLiteral(", part %1 of %2").arg(work.shard->part).arg(work.shard->parts);
    QString form = work.command;
    for (const char *selector : {"all", "fleet", "retry"}) {
        if (parser.isSet(QLatin1String(selector)))
            form += QLatin1String(" --") + QLatin1String(selector);
    }
    context.out << headerLine(form, subject, QDateTime::currentDateTime());
    if (work.folder)
        context.out << "Reports in " << escapedControls(*work.folder) << "\n";
    context.out.flush();
}

QString fleetDatabaseName(const FleetWork &work, const FleetDatabase &database)
{
    if (work.servers.size() == 1)
        return escapedControls(database.name);
    return escapedControls(QStringLiteral("%1 (%2)").arg(database.name, work.servers[database.server].server));
}

QString FleetDisplay::nameColumn(const FleetWork &work, const FleetRecord &fleet, qsizetype database)
{
    const QMutexLocker lock(&m_mutex);
    if (m_nameWidth == 0) {
        m_nameWidth = kNameColumn;
        for (const FleetDatabase &each : fleet.databases)
            m_nameWidth = std::max(m_nameWidth, fleetDatabaseName(work, each).size());
    }
    return fleetDatabaseName(work, fleet.databases[database]).leftJustified(m_nameWidth);
}

void printFleetJson(const FleetWork &work, const FleetRecord &fleet, int status, CommandContext &context)
{
    QJsonObject index = fleet.index;
    index.insert(QStringLiteral("exit"), status);
    if (work.folder)
        index.insert(QStringLiteral("folder"), *work.folder);
    if (!fleet.indexErrors.isEmpty())
        index.insert(QStringLiteral("errors"), QJsonArray::fromStringList(fleet.indexErrors));
    context.out << QJsonDocument(index).toJson(QJsonDocument::Compact) << "\n";
}

void printListingFailures(const QString &command, const QList<FleetServer> &servers, const FleetRecord &fleet,
                          CommandContext &context)
{
    for (qsizetype i = 0; i < servers.size(); ++i) {
        const ListingOutcome &listing = fleet.listings[i];
        const QString where = listingTarget(servers[i]);
        if (listing.failed())
            context.err << "zrt " << command << ": " << escapedControls(listingFailureText(listing, where)) << "\n";
        for (const QString &refused : listing.refused)
            context.err << "zrt " << command << ": " << escapedControls(where) << " lists a database that is left alone: "
                        << refused << "\n";
        if (!listing.noLongerListed.isEmpty())
            context.err << "zrt " << command << ": " << escapedControls(where) << " no longer lists, so they are not retried: "
                        << escapedControls(listing.noLongerListed.join(QLatin1String(", "))) << "\n";
    }
}
