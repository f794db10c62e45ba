#pragma once

#include "platform/Workers.h"

#include <QObject>

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

/// Has `work` done by `workers`, then calls `done` on the thread of `context`, unless `context` is gone
/// by then. When there is no thread for it, only `done` is called. `work` must not throw.
void runInBackground(QObject *context, Workers &workers, std::function<void()> work,
                     std::function<void()> done);

/// The one way to work beside the user-interface thread: has `work` done by `workers`, then hands its
/// result to `done` on the thread of `context`; when `context` is gone by then, the result is dropped.
/// Work that throws, or that there is no thread for, has the result `{}`: so what `work` returns is of a
/// type whose `{}` says that nothing came of it.
template <class Work, class Done>
void inBackground(QObject *context, Work work, Done done, Workers &workers = Workers::computing())
{
    using Result = std::invoke_result_t<Work>;
    auto result = std::make_shared<Result>();
    auto guarded = [result, work = std::move(work)] {
        try {
            *result = work();
        } catch (const std::exception &) {
            *result = Result();
        }
    };
    runInBackground(context, workers, std::move(guarded),
                    [result, done = std::move(done)] { done(std::as_const(*result)); });
}
