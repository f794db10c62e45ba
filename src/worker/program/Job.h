#pragma once

#include "worker/Protocol.h"

#include <string>
#include <string_view>
#include <vector>

/// What a worker was handed. The numbers in the order have not been looked at.
struct Handed {
    Protocol::Order order;
    std::string_view behind; ///< what follows the order
};

/// A kind of job. It lies in a module of its own that is loaded when it is asked for, since the libraries
/// that one needs would hold up the others. The module exports it under the name `job`.
struct JobModule {
    /// What is to be done with all rights: nothing of what was handed over is known yet. The folders that
    /// the work reads.
    std::vector<std::string> (*prepare)();

    /// Does the work, without rights, and says how it went. May throw.
    Protocol::Report (*work)(const Handed &handed);
};

/// A report of that kind, all else being empty.
Protocol::Report newReport(Protocol::Report::Kind kind);

/// Tells the window's process.
void send(const Protocol::Report &report);
