#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A job in the queue of a printer, fed as its document is made.
class PrintQueue {
public:
    using Options = std::vector<std::pair<std::string, std::string>>;

    /// A print system that doesn't answer is waited for while `goesOn` says so, but not for ever.
    PrintQueue(const std::string &printer, const std::string &title, const Options &options,
               std::function<bool()> goesOn);
    ~PrintQueue();
    PrintQueue(const PrintQueue &) = delete;
    PrintQueue &operator=(const PrintQueue &) = delete;

    bool isOpen() const { return m_job > 0; }
    bool write(const char *bytes, std::size_t count);
    bool finish();
    void cancel();

    /// What the print system says is wrong; empty when nothing is.
    std::string reason() const;

private:
    struct Connection;

    std::unique_ptr<Connection> m_connection;
    std::string m_printer;
    int m_job = 0;
};
