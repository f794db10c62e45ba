#pragma once

#include "typesetting/Page.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A page's operators; left as they are where compressing them isn't worth it.
struct PageContent {
    std::string bytes;
    bool isDeflated = false;
};

/// Turns pages into content streams on other threads, while the next pages are being set.
class CompressedPages {
public:
    /// Takes each content in the order of the pages, on the thread that adds them.
    using Sink = std::function<void(PageContent &&)>;

    CompressedPages(int threads, Sink sink);
    ~CompressedPages();
    CompressedPages(const CompressedPages &) = delete;
    CompressedPages &operator=(const CompressedPages &) = delete;

    /// Waits while too many pages are under way, so that they never pile up.
    void add(Page &&page);

    /// To be called once, after the last page.
    void finish();

private:
    struct Job {
        Page page;
        PageContent content;
        bool isDone = false;
    };

    void work();
    void end();
    void handOver(std::unique_lock<std::mutex> &lock);

    Sink m_sink;
    std::mutex m_mutex;
    std::condition_variable m_added;
    std::condition_variable m_done;
    std::deque<Job> m_jobs;
    std::size_t m_begun = 0; // of these
    std::exception_ptr m_failure;
    bool m_ending = false;
    std::vector<std::thread> m_threads;
};
