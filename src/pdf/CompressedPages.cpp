#include "pdf/CompressedPages.h"

#include "pdf/Deflate.h"
#include "pdf/DrawingOperators.h"

namespace {

constexpr std::size_t mostWaiting = 64; // pages

} // namespace

CompressedPages::CompressedPages(int threads)
{
    for (int i = 0; i < threads; ++i)
        m_threads.emplace_back([this] { work(); });
}

CompressedPages::~CompressedPages()
{
    end();
}

void CompressedPages::add(Page &&page)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.size() < mostWaiting || m_failure; });
    m_waiting.emplace_back(m_streams.size(), std::move(page));
    m_streams.emplace_back();
    m_changed.notify_all();
}

void CompressedPages::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return !m_waiting.empty() || m_ending; });
        if (m_waiting.empty())
            return;
        const auto [number, page] = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_changed.notify_all();
        lock.unlock();
        std::string stream;
        std::exception_ptr failure;
        try {
            stream = deflated(drawingOperators(page));
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        m_streams[number] = std::move(stream);
        if (failure)
            m_failure = failure;
    }
}

void CompressedPages::end()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_changed.notify_all();
    }
    for (std::thread &thread : m_threads)
        thread.join();
    m_threads.clear();
}

std::vector<std::string> CompressedPages::finished()
{
    end();
    if (m_failure)
        std::rethrow_exception(m_failure);
    return std::move(m_streams);
}
