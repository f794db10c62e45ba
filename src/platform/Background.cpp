#include "platform/Background.h"

#include <QFutureWatcher>
#include <QPromise>

#include <mutex>

namespace {

// Called on both sides of where something passes from thread to thread. Qt keeps the two in order by
// itself, but the thread sanitizer, which doesn't look into it, sees only this mutex.
void pass()
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
}

struct Task {
    std::function<void()> work;
    QPromise<void> promise;

    void run()
    {
        work();
        work = nullptr; // nothing of it is left to this thread once the promise is kept
        pass();
        promise.finish();
    }
};

} // namespace

void runInBackground(QObject *context, Workers &workers, std::function<void()> work,
                     std::function<void()> done)
{
    const auto task = std::make_shared<Task>();
    task->work = std::move(work);
    task->promise.start();
    // A watcher, not a continuation of the future: those don't survive the end of their context.
    auto *watcher = new QFutureWatcher<void>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, done = std::move(done)] {
        pass();
        done();
        watcher->deleteLater();
    });
    watcher->setFuture(task->promise.future());
    if (!workers.start([task] { task->run(); }))
        task->promise.finish();
}
