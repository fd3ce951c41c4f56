#pragma once

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

// A fleet folder's index.json, index.html and junit.xml kept current while the
// fleet runs, so that a folder left by a kill (SIGKILL, a reboot) can be
// retried: rewritten soon after each start and end, but at most once per
// `interval`, so that a fleet of thousands does not rewrite them thousands of
// times. `snapshot` is asked on the writer's own thread.
class KeptIndex
{
public:
    KeptIndex(QString folder, std::function<QJsonObject()> snapshot,
              std::chrono::milliseconds interval = std::chrono::seconds(1));
    KeptIndex(const KeptIndex &) = delete;
    KeptIndex &operator=(const KeptIndex &) = delete;
    // Stops the writer; the final write is its owner's.
    ~KeptIndex();

    void changed();

private:
    void keep();

    const QString m_folder;
    const std::function<QJsonObject()> m_snapshot;
    const std::chrono::milliseconds m_interval;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_changed = false;
    bool m_ended = false;
    std::thread m_writer;
};
