#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

/// The lines that the program prints. A line is text with its '\n' at the end; it comes out whole,
/// whichever threads print at the same time. What can't be written is dropped without a word.
class StandardOutput {
public:
    /// The process's own. It is never destroyed, as that would wait for whoever reads it.
    static StandardOutput &standard();

    explicit StandardOutput(std::FILE *stream);
    ~StandardOutput(); ///< waits until everything posted has been taken
    StandardOutput(const StandardOutput &) = delete;
    StandardOutput &operator=(const StandardOutput &) = delete;

    // For background threads: these wait for as long as the reader does.
    void print(const char *line)
    {
        if (m_isOpen.load(std::memory_order_relaxed) || letOthersPass())
            write(line);
    }
    void flush();

    /// For the user-interface thread: never waits. The line can be read as soon as the reader has
    /// taken what went before. While it takes nothing, a thousand lines are kept and no more.
    void post(std::string line);

    /// The end of printing: waits no longer than `patience` until what has been printed and posted
    /// is written out. Lines that come later are dropped.
    void finish(std::chrono::milliseconds patience);

private:
    void write(const char *line);
    bool letOthersPass();
    void wakeWriter();
    void writePosted();

    std::FILE *const m_stream;
    const bool m_isTerminal;
    // False while print has to look closer: posted lines are waiting, or printing has ended.
    std::atomic<bool> m_isOpen{true};

    std::mutex m_mutex; // guards what follows; never held while writing
    std::condition_variable m_changed;
    std::deque<std::string> m_posted;
    bool m_isClosing = false;
    bool m_isWritten = false;
    std::thread m_writer; // started by the first line posted
};
