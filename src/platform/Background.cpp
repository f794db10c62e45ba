#include "platform/Background.h"

#include <QFutureWatcher>
#include <QPromise>
#include <QRunnable>

#include <mutex>

namespace {

// Called on both sides of where something passes from thread to thread. The toolkit keeps the two in
// order by itself, but the thread sanitizer, which doesn't look into it, sees only this mutex.
void pass()
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
}

class Task : public QRunnable {
public:
    explicit Task(std::function<void()> work)
        : m_work(std::move(work))
    {
        m_promise.start();
    }

    QFuture<void> future() const { return m_promise.future(); }

    void run() override
    {
        pass();
        m_work();
        m_work = nullptr; // nothing of it is left to this thread once the future has finished
        pass();
        m_promise.finish();
    }

private:
    std::function<void()> m_work;
    QPromise<void> m_promise;
};

} // namespace

void runInBackground(QObject *context, QThreadPool *pool, std::function<void()> work,
                     std::function<void()> done)
{
    auto *task = new Task(std::move(work));
    // A watcher, not a continuation of the future: those don't survive the end of their context.
    auto *watcher = new QFutureWatcher<void>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, done = std::move(done)] {
        pass();
        done();
        watcher->deleteLater();
    });
    watcher->setFuture(task->future());
    pass();
    pool->start(task);
}
