// The window while two runs of the simulation are under way: from a click or a slider's move, sent
// through the event queue, until it is handled and painted. Also the most that runs take of memory.
//
//   responsiveness [EVENTS=1000]

#include "app/MainWindow.h"
#include "platform/Process.h"
#include "platform/StandardOutput.h"
#include "simulation/SimulationTask.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Keeps so many runs under way until it is told to stop.
class Load : public QObject {
public:
    void start(int runs)
    {
        for (; runs > 0; --runs)
            startRun();
    }
    void stop() { m_stopping = true; }
    int runsEnded() const { return m_ended; }
    bool isIdle() const { return m_underWay == 0; }

private:
    void startRun()
    {
        ++m_underWay;
        startSimulation(this, [this, says = 0](const QString &) mutable {
            if (++says < 2)
                return;
            --m_underWay, ++m_ended;
            if (!m_stopping)
                startRun();
        });
    }

    int m_underWay = 0;
    int m_ended = 0;
    bool m_stopping = false;
};

class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    int paints = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

void post(QWidget *target, QEvent::Type type, QPointF where, Qt::MouseButtons held)
{
    QCoreApplication::postEvent(
        target, new QMouseEvent(type, where, target->mapToGlobal(where), Qt::LeftButton, held, {}));
}

// Milliseconds from the event until `done`, and the widget was painted after it.
template <class Done> double milliseconds(PaintCounter &counter, Done done)
{
    QElapsedTimer timer;
    timer.start();
    const int before = counter.paints;
    while (!done() || counter.paints == before) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (timer.elapsed() > 5000)
            std::fprintf(stderr, "responsiveness: an event was not answered\n"), std::_Exit(2);
    }
    return double(timer.nsecsElapsed()) / 1e6;
}

QPushButton *buttonThatPrints(QWidget &window)
{
    auto *button = new QPushButton(QStringLiteral("OK"), &window);
    QObject::connect(button, &QPushButton::clicked, button,
                     [] { StandardOutput::standard().post("OK tapped\n"); });
    button->move(300, 250);
    button->show();
    return button;
}

// A press and a release of a button.
double click(QPushButton *button, PaintCounter &counter)
{
    int clicks = 0;
    const auto connection =
        QObject::connect(button, &QPushButton::clicked, button, [&clicks] { ++clicks; });
    const QPointF middle = button->rect().center();
    post(button, QEvent::MouseButtonPress, middle, Qt::LeftButton);
    post(button, QEvent::MouseButtonRelease, middle, Qt::NoButton);
    const double took = milliseconds(counter, [&clicks] { return clicks > 0; });
    QObject::disconnect(connection);
    return took;
}

// One step of the slider, forth and back; the size of the text follows it.
double step(QSlider *slider, PaintCounter &counter)
{
    const int before = slider->value();
    const Qt::Key key = before % 2 ? Qt::Key_Left : Qt::Key_Right;
    QCoreApplication::postEvent(slider, new QKeyEvent(QEvent::KeyPress, key, {}));
    return milliseconds(counter, [slider, before] { return slider->value() != before; });
}

double percentile(std::vector<double> &values, double part)
{
    std::sort(values.begin(), values.end());
    return values[size_t(part * double(values.size() - 1))];
}

int dirtyKib()
{
    std::ifstream memory("/proc/self/smaps_rollup");
    for (std::string word; memory >> word;) {
        int kib = 0;
        if (word == "Private_Dirty:" && memory >> kib)
            return kib;
    }
    return -1;
}

void sendStandardOutput(const char *where)
{
    if (std::string(where) != "a pipe") {
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), 1);
        return;
    }
    std::FILE *reader = popen("exec cat > /dev/null", "we");
    if (!reader)
        std::_Exit(2);
    dup2(fileno(reader), 1);
}

} // namespace

int main(int argc, char *argv[])
{
    QStandardPaths::setTestModeEnabled(true);
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const int events = argc > 1 ? std::max(100, std::atoi(argv[1])) : 1000;
    std::fprintf(stderr,
                 "from event to painted, in ms; two runs under way (bars: median 4, 99th percentile 16)\n");

    MainWindow window;
    window.resize(window.sizeHint());
    window.show();
    auto *slider = window.findChild<QSlider *>();
    QPushButton *button = buttonThatPrints(window);
    PaintCounter buttonPaints(button), sliderPaints(slider);
    while (!sliderPaints.paints)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);

    for (const char *where : {"nowhere", "a pipe"}) {
        sendStandardOutput(where);
        for (const int runs : {0, 2}) {
            Load load;
            load.start(runs);
            std::vector<double> clicks, steps;
            int largest = 0;
            const int before = dirtyKib();
            for (int i = 0; i < events / 2; ++i) {
                clicks.push_back(click(button, buttonPaints));
                steps.push_back(step(slider, sliderPaints));
                if (i % 50 == 0)
                    largest = std::max(largest, dirtyKib());
                std::this_thread::sleep_for(std::chrono::microseconds(700)); // fingers are slower
            }
            load.stop();
            while (!load.isIdle())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            std::fprintf(stderr,
                         "%d runs to %-8s clicks %6.2f %6.2f   slider %6.2f %6.2f   %4d runs ended, memory "
                         "%+d KiB\n",
                         runs, where, percentile(clicks, 0.5), percentile(clicks, 0.99),
                         percentile(steps, 0.5), percentile(steps, 0.99), load.runsEnded(),
                         largest - before);
        }
    }
    Process::end(0);
}
