#include "platform/StandardOutput.h"

#include <system_error>

#include <unistd.h>

namespace {
constexpr size_t mostPosted = 1000;
}

StandardOutput &StandardOutput::standard()
{
    static auto *output = new StandardOutput(stdout);
    return *output;
}

StandardOutput::StandardOutput(std::FILE *stream)
    : m_stream(stream)
    , m_isTerminal(::isatty(::fileno(stream)) == 1)
{
}

StandardOutput::~StandardOutput()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isClosing = true;
        m_changed.notify_all();
    }
    if (m_writer.joinable())
        m_writer.join();
}

void StandardOutput::flush()
{
    std::fflush(m_stream);
}

void StandardOutput::post(std::string line)
{
    const std::lock_guard lock(m_mutex);
    if (m_isClosing || m_posted.size() >= mostPosted)
        return;
    m_posted.push_back(std::move(line));
    m_isOpen = false;
    wakeWriter();
}

void StandardOutput::finish(std::chrono::milliseconds patience)
{
    std::unique_lock lock(m_mutex);
    m_isClosing = true;
    m_isOpen = false;
    wakeWriter();
    m_changed.wait_for(lock, patience, [this] { return m_isWritten; });
}

// What puts does, out of its inline parts: that takes a fifth less time. The stream's lock makes the line
// whole; the thread sanitizer doesn't know that lock.
[[gnu::no_sanitize_thread]] void StandardOutput::write(const char *line)
{
    if (ftrylockfile(m_stream) != 0) {
        // Two runs that hand the lock to and fro spend most of their time on that. So the other one
        // goes on for a while, undisturbed; not on a terminal, where a line costs more than the lock.
        if (!m_isTerminal)
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        flockfile(m_stream);
    }
    for (; *line; ++line)
        putc_unlocked(*line, m_stream);
    funlockfile(m_stream);
}

// The stream's own lock keeps no queue: runs that print on and on could get it over and over while
// a posted line waits for it. So they step aside here until that line is out.
bool StandardOutput::letOthersPass()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isOpen || m_isClosing; });
    return !m_isClosing;
}

// Called with the mutex held.
void StandardOutput::wakeWriter()
{
    try {
        if (!m_writer.joinable())
            m_writer = std::thread(&StandardOutput::writePosted, this);
    } catch (const std::system_error &) {
        m_isOpen = !m_isClosing; // no thread to be had: the line waits until the next one is posted
    }
    m_changed.notify_all();
}

// The writer thread: the only one that waits for the reader on behalf of the user-interface thread.
void StandardOutput::writePosted()
{
    std::unique_lock lock(m_mutex);
    while (!m_isWritten) {
        m_changed.wait(lock, [this] { return m_isClosing || !m_posted.empty(); });
        const bool isLast = m_isClosing; // nothing is posted any more
        std::deque<std::string> lines;
        lines.swap(m_posted);
        lock.unlock();
        for (const std::string &line : lines)
            write(line.c_str());
        std::fflush(m_stream);
        lock.lock();
        m_isOpen = m_posted.empty() && !m_isClosing;
        m_isWritten = isLast;
        m_changed.notify_all();
    }
}
