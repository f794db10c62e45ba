#pragma once

#include <chrono>

/// The life of the process as the operating system sees it.
namespace Process {

/// The very first thing to do. From then on a reader of our output that goes away doesn't end the
/// process, and standard input, output and error are open, if only to nowhere, so that no file
/// opened later is taken for one of them; and exit, called by anyone, ends the process as a failure
/// the way that end does.
void begin();

/// Writes out what has been printed, for as long as that goes quickly, and ends the process at once:
/// whatever other threads are doing, and without the clean-up of a library that might wait for them.
[[noreturn]] void end(int status);

/// Ends the process like that after `delay`, should it not have ended before; without writing anything out
/// when the system has no thread for that.
void endWithin(std::chrono::milliseconds delay, int status);

/// Ends the process after `delay`, whatever it is doing.
void endBySignal(std::chrono::milliseconds delay, int status);

} // namespace Process
