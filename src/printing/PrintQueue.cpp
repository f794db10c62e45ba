#include "printing/PrintQueue.h"

#include <cups/cups.h>

namespace {

// "office/duplex": the name of a printer, and that of a set of options of this user's.
std::string printerOf(const std::string &queue)
{
    return queue.substr(0, queue.find('/'));
}

} // namespace

struct PrintQueue::Connection {
    http_t *http =
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, 5000, nullptr);

    Connection() = default;
    ~Connection() { httpClose(http); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
};

PrintQueue::PrintQueue(const std::string &printer, const std::string &title, const Options &options)
    : m_connection(std::make_unique<Connection>())
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
    return m_job > 0 && cupsWriteRequestData(m_connection->http, bytes, count) == HTTP_STATUS_CONTINUE;
}

bool PrintQueue::finish()
{
    return m_job > 0
        && cupsFinishDocument(m_connection->http, m_printer.c_str()) <= IPP_STATUS_OK_CONFLICTING;
}

void PrintQueue::cancel()
{
    if (m_job > 0)
        cupsCancelJob2(m_connection->http, m_printer.c_str(), m_job, 1);
    m_job = 0;
}

std::string PrintQueue::reason() const
{
    return cupsLastError() <= IPP_STATUS_OK_CONFLICTING ? std::string() : cupsLastErrorString();
}
