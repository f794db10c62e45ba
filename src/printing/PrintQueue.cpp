#include "printing/PrintQueue.h"

#include <cups/cups.h>

namespace {

// "office/duplex": the name of a printer, and that of a set of options of this user's.
std::string printerOf(const std::string &queue)
{
    return queue.substr(0, queue.find('/'));
}

constexpr double lookEvery = 0.2; // seconds
constexpr int mostLooks = 150;
constexpr int looksForGoodbye = 5;

} // namespace

struct PrintQueue::Connection {
    int cancelled = 0; // what connecting looks at
    http_t *http =
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, 5000, &cancelled);
    std::function<bool()> goesOn;
    int looks = 0; // in vain, since the print system last took or said something
    bool isGivenUp = false;

    explicit Connection(std::function<bool()> asked)
        : goesOn(std::move(asked))
    {
        if (http)
            httpSetTimeout(http, lookEvery, keepsWaiting, this);
    }
    static int keepsWaiting(http_t *, void *connection)
    {
        auto &waiting = *static_cast<Connection *>(connection);
        waiting.isGivenUp = !waiting.goesOn() || ++waiting.looks >= mostLooks;
        return waiting.isGivenUp ? 0 : 1;
    }
    ~Connection() { httpClose(http); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
};

PrintQueue::PrintQueue(const std::string &printer, const std::string &title, const Options &options,
                       std::function<bool()> goesOn)
    : m_connection(std::make_unique<Connection>(std::move(goesOn)))
    , m_printer(printerOf(printer))
{
    if (!m_connection->http)
        return;
    cups_option_t *list = nullptr;
    int count = 0;
    for (const auto &[name, value] : options)
        count = cupsAddOption(name.c_str(), value.c_str(), count, &list);
    http_t *http = m_connection->http;
    m_job = cupsCreateJob(http, m_printer.c_str(), title.c_str(), count, list);
    cupsFreeOptions(count, list);
    if (m_job > 0
        && cupsStartDocument(http, m_printer.c_str(), m_job, title.c_str(), CUPS_FORMAT_PDF, 1)
            != HTTP_STATUS_CONTINUE)
        cancel();
}

PrintQueue::~PrintQueue() = default;

bool PrintQueue::write(const char *bytes, std::size_t count)
{
    m_connection->looks = 0;
    return m_job > 0 && cupsWriteRequestData(m_connection->http, bytes, count) == HTTP_STATUS_CONTINUE;
}

bool PrintQueue::finish()
{
    if (m_job <= 0)
        return false;
    const ipp_status_t status = cupsFinishDocument(m_connection->http, m_printer.c_str());
    return status <= IPP_STATUS_OK_CONFLICTING && !m_connection->isGivenUp;
}

void PrintQueue::cancel()
{
    m_connection->looks = mostLooks - looksForGoodbye;
    m_connection->goesOn = [] { return true; };
    if (m_job > 0)
        cupsCancelJob2(m_connection->http, m_printer.c_str(), m_job, 1);
    m_job = 0;
}

std::string PrintQueue::reason() const
{
    return cupsLastError() <= IPP_STATUS_OK_CONFLICTING ? std::string() : cupsLastErrorString();
}
