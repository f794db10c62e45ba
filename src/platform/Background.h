#pragma once

#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <type_traits>
#include <utility>

/// Runs `work` on a thread of a pool, which is the shared one unless the work may be held up for
/// long, then hands its result to `done` on the thread of `context`; when `context` is gone by then,
/// the result is dropped.
template <class Work, class Done>
void inBackground(QObject *context, Work work, Done done, QThreadPool *pool = QThreadPool::globalInstance())
{
    // A watcher, not a continuation of the future: those don't survive the end of their context.
    auto *watcher = new QFutureWatcher<std::invoke_result_t<Work>>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, done = std::move(done)] {
        done(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run(pool, std::move(work)));
}
