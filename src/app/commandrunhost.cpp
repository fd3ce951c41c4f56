#include "commandrunhost.h"

#include <QFileInfo>
#include <QIODevice>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int kBarWidth = 40;

} // namespace

CommandRunHost::CommandRunHost(CommandContext &context, std::optional<QString> createAt, QIODevice *report,
                               std::function<QString(QString)> mask, bool showProgress, const std::atomic<bool> *stop)
    : m_context(context)
    , m_createAt(std::move(createAt))
    , m_report(report)
    , m_mask(std::move(mask))
    , m_showProgress(showProgress)
    , m_stop(stop)
{
}

void CommandRunHost::setProgress(int value)
{
    if (!m_showProgress || m_maximum <= 0)
        return;
    const int filled = kBarWidth * value / m_maximum;
    m_context.err << "\r[" << QString(filled, QLatin1Char('#')) << QString(kBarWidth - filled, QLatin1Char(' ')) << "] "
                  << 100 * value / m_maximum << "%";
    m_context.err.flush();
}

std::optional<DatabaseFile> CommandRunHost::chooseDatabaseFile()
{
    if (!m_createAt)
        return std::nullopt;
    return DatabaseFile{*m_createAt, QFileInfo(*m_createAt).fileName()};
}

void CommandRunHost::showEndButton()
{
    if (m_showProgress)
        m_context.err << "\n";
}

void CommandRunHost::statementExecuted(const StatementOutcome &outcome)
{
    StatementOutcome masked = outcome;
    masked.status.message = m_mask(outcome.status.message);
    m_tally.add(masked);
    if (!m_report)
        return;
    const QJsonObject line{
        {QStringLiteral("index"), m_tally.sent()},
        {QStringLiteral("phase"), masked.phase},
        {QStringLiteral("text"), masked.text},
        {QStringLiteral("outcome"), resultName(classify(masked))},
        {QStringLiteral("message"), masked.status.message},
        {QStringLiteral("milliseconds"), double(masked.nanoseconds) / 1e6},
    };
    m_report->write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
}
