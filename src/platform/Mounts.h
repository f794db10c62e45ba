#pragma once

#include <string>
#include <vector>

/// Folders behind which there is somebody else, on the other side of a network or in another process, who
/// may not answer.
namespace Mounts {

/// Where they are, as the system's list has it. Doesn't ask them anything. `list` is the file of the list.
std::vector<std::string> remote(const std::string &list = "/proc/self/mountinfo");

/// Asks one of them, and waits for the answer, whatever it is.
void ask(const std::string &mount);

} // namespace Mounts
