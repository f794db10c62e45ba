#include "pdf/CompressedPages.h"

#include "pdf/Deflate.h"
#include "pdf/DrawingOperators.h"

#include <utility>

namespace {

constexpr std::size_t mostUnderWay = 64;    // pages
constexpr std::size_t worthDeflating = 200; // bytes

PageContent contentOf(const Page &page)
{
    std::string operators = drawingOperators(page);
    if (operators.size() < worthDeflating)
        return {std::move(operators), false};
    return {deflated(operators), true};
}

} // namespace

CompressedPages::CompressedPages(int threads, Sink sink)
    : m_sink(std::move(sink))
{
    for (int i = 0; i < threads; ++i)
        m_threads.emplace_back([this] { work(); });
}

CompressedPages::~CompressedPages()
{
    {
        const std::lock_guard lock(m_mutex);
        while (m_jobs.size() > m_begun) // nobody wants them now
            m_jobs.pop_back();
    }
    end();
}

void CompressedPages::add(Page &&page)
{
    std::unique_lock lock(m_mutex);
    m_done.wait(lock,
                [this] { return m_jobs.size() < mostUnderWay || m_jobs.front().isDone || m_failure; });
    m_jobs.push_back({.page = std::move(page)});
    m_added.notify_one();
    handOver(lock);
}

void CompressedPages::handOver(std::unique_lock<std::mutex> &lock)
{
    if (m_failure)
        std::rethrow_exception(m_failure);
    while (!m_jobs.empty() && m_jobs.front().isDone) {
        PageContent content = std::move(m_jobs.front().content);
        m_jobs.pop_front();
        --m_begun;
        lock.unlock();
        m_sink(std::move(content));
        lock.lock();
    }
}

void CompressedPages::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_added.wait(lock, [this] { return m_begun < m_jobs.size() || m_ending; });
        if (m_begun == m_jobs.size())
            return;
        Job &job = m_jobs[m_begun++];
        lock.unlock();
        PageContent content;
        std::exception_ptr failure;
        try {
            content = contentOf(std::exchange(job.page, {}));
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        job.content = std::move(content);
        job.isDone = true;
        if (failure)
            m_failure = failure;
        m_done.notify_one();
    }
}

void CompressedPages::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_added.notify_all();
    }
    for (std::thread &thread : m_threads)
        thread.join();
    m_threads.clear();
}

void CompressedPages::finish()
{
    end();
    std::unique_lock lock(m_mutex);
    handOver(lock);
}
