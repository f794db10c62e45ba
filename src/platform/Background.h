#pragma once

#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

/// Runs `work` on a thread of a pool, which is the shared one unless the work may be held up for
/// long, then hands its result to `done` on the thread of `context`; when `context` is gone by then,
/// the result is dropped.
template <class Work, class Done>
void inBackground(QObject *context, Work work, Done done, QThreadPool *pool = QThreadPool::globalInstance())
{
    // The result is handed over under a mutex of our own, which the thread sanitizer can see.
    struct Handover {
        std::mutex mutex;
        std::optional<std::invoke_result_t<Work>> result;
    };
    const auto handover = std::make_shared<Handover>();
    // A watcher, not a continuation of the future: those don't survive the end of their context.
    auto *watcher = new QFutureWatcher<void>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context,
                     [watcher, handover, done = std::move(done)] {
                         std::unique_lock lock(handover->mutex);
                         const auto result = std::move(*handover->result);
                         lock.unlock();
                         done(result);
                         watcher->deleteLater();
                     });
    watcher->setFuture(QtConcurrent::run(pool, [handover, work = std::move(work)] {
        auto result = work();
        const std::lock_guard lock(handover->mutex);
        handover->result = std::move(result);
    }));
}
