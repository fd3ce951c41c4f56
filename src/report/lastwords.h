#pragma once

#include <QMutex>

#include <functional>
#include <map>

// What must still reach the disk when the program is ended at once (a second
// Ctrl-C): each unfinished file registers how to finish itself, and goes
// from the list when it is finished the ordinary way.
class LastWords
{
public:
    static LastWords &instance();

    int add(std::function<void()> finish);
    void remove(int id);
    // Finishes everything still registered, each once, the latest first;
    // called by the thread that then ends the program, while other threads
    // may still be writing. A finisher may write files of its own.
    void sayAll();

private:
    QRecursiveMutex m_mutex;
    std::map<int, std::function<void()>> m_finishers;
    int m_next = 0;
};
