#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/// Threads for work beside the user-interface thread: made when there is work for them, never more than
/// so many, and gone when there has been nothing to do for a while. The process may end in the midst of it.
class Workers {
public:
    explicit Workers(int most);
    Workers(const Workers &) = delete;
    Workers &operator=(const Workers &) = delete;

    /// False when the system has no thread for us and none is there already: the work is not done.
    bool start(std::function<void()> work);

    /// Whether nothing is under way, nor waits for its turn.
    bool isIdle();

    /// For what keeps a processor busy: as many as there are processors.
    static Workers &computing();

    /// For what may be held up by others for as long as they like: a folder that doesn't answer, a print
    /// server, a reader of our output. Enough of them that one who waits doesn't keep others waiting.
    static Workers &waiting();

private:
    void work();

    const int m_most;
    std::mutex m_mutex; // guards what follows; never held while working
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_tasks;
    int m_threads = 0;
    int m_idle = 0; // of them
};
