#pragma once

#include <string>

/// Tells the window manager of an X display that a program is starting because its user wants it now.
/// Whoever shows a window in answer names the sequence, and the window may come to the front, also when
/// it is one of a program that has been running for long.
namespace StartupSequence {

struct Program {
    std::string name;
    std::string entry;       ///< the file in which it is registered
    std::string windowClass; ///< may be empty
};

/// The id of the sequence, for the program to find in its environment; empty without an X display.
std::string begin(const Program &program);

/// To be called when the program doesn't start after all.
void end(const std::string &id);

} // namespace StartupSequence
