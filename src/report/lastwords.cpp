#include "lastwords.h"

LastWords &LastWords::instance()
{
    static LastWords words;
    return words;
}

int LastWords::add(std::function<void()> finish)
{
    const QMutexLocker lock(&m_mutex);
    m_finishers.emplace(m_next, std::move(finish));
    return m_next++;
}

void LastWords::remove(int id)
{
    const QMutexLocker lock(&m_mutex);
    m_finishers.erase(id);
}

void LastWords::sayAll()
{
    // Held throughout, so that no file of another thread goes away while it
    // is being finished.
    const QMutexLocker lock(&m_mutex);
    // The latest first: a fleet's index, registered before its reports, last.
    while (!m_finishers.empty()) {
        const auto latest = std::prev(m_finishers.end());
        const std::function<void()> finish = std::move(latest->second);
        m_finishers.erase(latest);
        finish();
    }
}
