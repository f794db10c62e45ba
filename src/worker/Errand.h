#pragma once

#include "worker/Protocol.h"

#include <chrono>
#include <functional>
#include <string_view>
#include <vector>

/// What a worker is sent out with: a process of its own that has no rights.
struct Errand {
    Protocol::Order order;
    std::vector<std::string_view> behind; ///< what follows the order
    int result = -1;                      ///< the memory to be written; or else `output`
    std::function<bool(const char *bytes, std::size_t count)> output; ///< takes a document; false: no more
    int picked = -1;                                                  ///< a file, for a job that wants one
    std::function<void(const Protocol::Report &)> heard;              ///< of each report
    std::function<bool()> goesOn;                                     ///< asked time and again
    std::chrono::milliseconds patience = std::chrono::minutes(1);     ///< with a worker that says nothing
};

/// An order with the limits that such a job never comes near; `bytes` are looked at.
Protocol::Order newOrder(Protocol::Job job, std::size_t bytes);

/// Has a worker do it. The last report; one of failure, whatever else becomes of the worker, which is gone
/// in any case. The numbers in it are the worker's: they have not been looked at.
Protocol::Report done(const Errand &errand);
