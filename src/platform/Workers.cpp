#include "platform/Workers.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

Workers::Workers(int most)
    : m_most(most)
{
}

// Neither is ever destroyed: that would have to wait for threads that may be held up.
Workers &Workers::computing()
{
    static auto *workers = new Workers(std::max(2, int(std::thread::hardware_concurrency())));
    return *workers;
}

Workers &Workers::waiting()
{
    static auto *workers = new Workers(64);
    return *workers;
}

bool Workers::start(std::function<void()> work)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(work));
    if (m_idle < int(m_tasks.size()) && m_threads < m_most) {
        try {
            std::thread([this] { this->work(); }).detach(); // which waits for the mutex first
            ++m_threads;
        } catch (const std::system_error &) {
            if (m_threads == 0) {
                m_tasks.pop_back();
                return false;
            }
        }
    }
    m_changed.notify_one();
    return true;
}

bool Workers::isIdle()
{
    const std::lock_guard lock(m_mutex);
    return m_tasks.empty() && m_idle == m_threads;
}

void Workers::work()
{
    constexpr std::chrono::seconds patience(10);
    std::unique_lock lock(m_mutex);
    for (;;) {
        ++m_idle;
        const bool wanted = m_changed.wait_for(lock, patience, [this] { return !m_tasks.empty(); });
        --m_idle;
        if (!wanted)
            break;
        const auto task = std::move(m_tasks.front());
        m_tasks.pop_front();
        lock.unlock();
        task();
        lock.lock();
    }
    --m_threads;
}
