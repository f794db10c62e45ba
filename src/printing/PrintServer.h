#pragma once

/// The print system of this computer or of another one, which Qt's print dialog asks for its printers while
/// the window waits.
namespace PrintServer {

/// Whether it answers a question within a second. Waits for that: not for the user-interface thread.
bool answers();

/// From now on, whoever asks the print system on this thread is told at once that there is none; or again
/// what the system says.
void leaveAlone(bool alone);

} // namespace PrintServer
