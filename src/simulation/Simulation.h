#pragma once

#include "platform/StandardOutput.h"

/// Runs the circuit through its one fixed sequence of commands, which prints the same 904,777 lines
/// every time. Takes as long as the reader of the output does: never for the user-interface thread.
void simulation(StandardOutput &output = StandardOutput::standard());
