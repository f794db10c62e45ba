#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

enum class Session { Ours, Own };

/// Starts a program with these words, with the signals as they are by default, and with nothing open but
/// these files, as its numbers 3 and up. Its number; -1 when that fails.
pid_t spawn(const std::vector<std::string> &command, Session session, const std::vector<int> &files = {});

/// Leaves nothing of it behind in the table of processes once it has ended; doesn't wait for that.
void forget(pid_t process);
