#pragma once

#include <QThreadPool>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

/// Runs `work` on a thread of the pool, then `done` on the thread of `context`, unless `context` is
/// gone by then.
void runInBackground(QObject *context, QThreadPool *pool, std::function<void()> work,
                     std::function<void()> done);

/// Runs `work` on a thread of a pool, which is the shared one unless the work may be held up for
/// long, then hands its result to `done` on the thread of `context`; when `context` is gone by then,
/// the result is dropped.
template <class Work, class Done>
void inBackground(QObject *context, Work work, Done done, QThreadPool *pool = QThreadPool::globalInstance())
{
    auto result = std::make_shared<std::optional<std::invoke_result_t<Work>>>();
    runInBackground(
        context, pool, [result, work = std::move(work)] { *result = work(); },
        [result, done = std::move(done)] { done(std::as_const(**result)); });
}
