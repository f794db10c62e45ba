#include "printing/PrintServer.h"

#include <cups/cups.h>

#include <memory>

namespace {

constexpr int patience = 500; // milliseconds, for each of two steps

using Connection = std::unique_ptr<http_t, decltype(&httpClose)>;

Connection connection()
{
    return {
        httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1, patience, nullptr),
        httpClose};
}

int giveUp(http_t *, void *)
{
    return 0;
}

} // namespace

bool PrintServer::answers()
{
    const Connection server = connection();
    if (!server)
        return false;
    httpSetTimeout(server.get(), patience / 1000.0, giveUp, nullptr);
    ippDelete(cupsDoRequest(server.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/"));
    // Whatever it says, as long as it says something.
    return httpError(server.get()) == 0 && cupsLastError() != IPP_STATUS_ERROR_SERVICE_UNAVAILABLE;
}

void PrintServer::leaveAlone(bool alone)
{
    cupsSetServer(alone ? "/dev/null" : nullptr);
}
