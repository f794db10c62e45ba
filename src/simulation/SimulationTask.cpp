#include "simulation/SimulationTask.h"

#include "simulation/Simulation.h"

#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrentRun>

using namespace Qt::StringLiterals;

namespace {

// Shared by all runs and by nothing else, as a run may be held up by whoever reads its output: a
// file must still load meanwhile. Never destroyed, since that would wait for the runs.
QThreadPool *backgroundPool()
{
    static QThreadPool *pool = [] {
        auto *threads = new QThreadPool;
        threads->setMaxThreadCount(16);
        return threads;
    }();
    return pool;
}

} // namespace

void startSimulation(QObject *owner, std::function<void(const QString &)> setText, StandardOutput &output)
{
    setText(u"スレッド動作中"_s);
    // A watcher rather than a continuation: it may be destroyed, with its owner, at any moment.
    auto *run = new QFutureWatcher<void>(owner);
    QObject::connect(run, &QFutureWatcher<void>::finished, run, [run, setText = std::move(setText)] {
        setText(u"動作完了"_s);
        run->deleteLater();
    });
    run->setFuture(QtConcurrent::run(backgroundPool(), [&output] {
        simulation(output);
        output.flush();
    }));
}
