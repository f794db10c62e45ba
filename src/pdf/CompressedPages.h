#pragma once

#include "typesetting/Page.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// Turns pages into compressed content streams on other threads, while the next pages are being set.
class CompressedPages {
public:
    explicit CompressedPages(int threads);
    ~CompressedPages();
    CompressedPages(const CompressedPages &) = delete;
    CompressedPages &operator=(const CompressedPages &) = delete;

    /// Waits while too many pages are under way, so that they never pile up.
    void add(Page &&page);

    /// All streams in the order of their pages; to be called once, after the last page.
    std::vector<std::string> finished();

private:
    void work();
    void end();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::pair<std::size_t, Page>> m_waiting;
    std::vector<std::string> m_streams;
    std::exception_ptr m_failure;
    bool m_ending = false;
    std::vector<std::thread> m_threads;
};
