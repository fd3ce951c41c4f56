#include "keptindex.h"

#include "fleetindex.h"

KeptIndex::KeptIndex(QString folder, std::function<QJsonObject()> snapshot, std::chrono::milliseconds interval)
    : m_folder(std::move(folder))
    , m_snapshot(std::move(snapshot))
    , m_interval(interval)
    , m_writer([this] { keep(); })
{
}

KeptIndex::~KeptIndex()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_wake.notify_one();
    m_writer.join();
}

void KeptIndex::changed()
{
    {
        const std::lock_guard lock(m_mutex);
        m_changed = true;
    }
    m_wake.notify_one();
}

void KeptIndex::keep()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_changed || m_ended; });
        if (m_ended)
            return;
        m_changed = false;
        lock.unlock();
        // What cannot be written now is named by the final write, if it fails too.
        QStringList passing;
        writeFleetIndex(m_folder, m_snapshot(), passing);
        lock.lock();
        m_wake.wait_for(lock, m_interval, [this] { return m_ended; });
    }
}
