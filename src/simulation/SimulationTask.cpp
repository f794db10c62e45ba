#include "simulation/SimulationTask.h"

#include "platform/Background.h"
#include "simulation/Simulation.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(SimulationTask)
};

// Shared by all runs and by nothing else: a run is held up by whoever reads its output, and a file
// must still load meanwhile. Never destroyed, since that would wait for the runs.
Workers &runs()
{
    static auto *workers = new Workers(16);
    return *workers;
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
    const auto ended = [setText = std::move(setText)](const QString &text) {
        setText(text.isEmpty() ? Titles::tr("動作を開始できませんでした") : text);
    };
    inBackground(owner, waitFunc, ended, runs());
}
