#include "platform/Process.h"

#include "platform/StandardOutput.h"

#include <cstdlib>
#include <system_error>
#include <thread>

using namespace std::chrono_literals;

void Process::end(int status)
{
    StandardOutput::standard().finish(250ms);
    std::_Exit(status); // exit would wait for the reader of our output
}

void Process::endWithin(std::chrono::milliseconds delay, int status)
{
    try {
        std::thread([delay, status] {
            std::this_thread::sleep_for(delay);
            end(status);
        }).detach();
    } catch (const std::system_error &) {
        endBySignal(delay, status);
    }
}
