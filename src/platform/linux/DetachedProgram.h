#pragma once

#include <string>
#include <vector>

/// Starts a program as a process of its own: in its own session, with nothing to read from and nowhere
/// to write to. The first word is its path, or a name to be found in PATH; no shell has a part in it.
bool startDetached(const std::vector<std::string> &command);
