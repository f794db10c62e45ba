#pragma once

#include <future>
#include <system_error>
#include <utility>

/// What two functions return that are called at the same time, the first on another thread; one after the
/// other where no thread is to be had. Throws what either of them throws, when both have ended.
template <class First, class Second> auto bothAtOnce(First first, Second second)
{
    std::future<decltype(first())> other;
    try {
        other = std::async(std::launch::async, first);
    } catch (const std::system_error &) {
        other = std::async(std::launch::deferred, first);
    }
    auto own = second();
    return std::pair(other.get(), std::move(own));
}
