#include "simulation/SimulationTask.h"

#include "platform/Background.h"
#include "simulation/Simulation.h"

using namespace Qt::StringLiterals;

namespace {

// Shared by all runs and by nothing else: a run is held up by whoever reads its output, and a file
// must still load meanwhile. Never destroyed, since that would wait for the runs.
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
    const auto waitFunc = [&output] {
        simulation(output);
        output.flush();
        return u"動作完了"_s;
    };
    inBackground(owner, waitFunc, std::move(setText), backgroundPool());
}
