// Opens files in a main window, one after the other, as a person does with the open panel, and says
// for each what it takes from there: until its first screenful is painted, until nothing is left to do,
// the longest time for which the event loop was held up, a step of the font slider, and the memory of
// the process's own. With --bare, the same for a plain text edit that is given the text as a whole. With
// --using, somebody types and moves the slider all the while. A file that the window refuses is said to be.
//
//   open_text [--bare | --using] FILE...        names end in .txt

#include "app/MainWindow.h"
#include "platform/Workers.h"
#include "reading/TextPane.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QKeyEvent>
#include <QSlider>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

namespace {

double dirtyMegabytes()
{
    std::ifstream memory("/proc/self/smaps_rollup");
    for (std::string word; memory >> word;) {
        double kib = 0;
        if (word == "Private_Dirty:" && memory >> kib)
            return kib / 1024;
    }
    return 0;
}

// Watches the event loop, and an edit in it.
class Watch : public QObject {
public:
    explicit Watch(QPlainTextEdit *edit)
        : m_edit(edit)
    {
        edit->viewport()->installEventFilter(this);
        connect(&m_beat, &QTimer::timeout, this, &Watch::beat);
        m_beat.start(1);
    }

    bool isLoaded() const { return hasChanged() && m_edit->document()->isUndoRedoEnabled(); }

    // Milliseconds until the edit has been painted with another text, or whatever else is awaited.
    struct Result {
        double painted = 0, idle = 0, longest = 0;
        bool refused = false;
    };

    Result during(const std::function<void()> &action)
    {
        begin();
        const auto isFile = [this](int, int removed, int added) {
            m_changed |= removed != 0 || added != 1;
        };
        const auto changes = connect(m_edit->document(), &QTextDocument::contentsChange, this, isFile);
        action();
        while (m_result.idle == 0 && m_clock.elapsed() < 120'000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        disconnect(changes);
        return m_result;
    }

    double untilPainted(const std::function<void()> &action)
    {
        begin();
        m_changed = true;
        action();
        while (m_result.painted == 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_result.painted;
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && hasChanged() && !m_painted) {
            m_painted = true;
            // Behind the painting that is about to happen.
            QMetaObject::invokeMethod(
                this,
                [this, round = m_round] {
                    if (round == m_round)
                        m_result.painted = now();
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    void begin()
    {
        ++m_round;
        m_result = {};
        m_painted = m_changed = false;
        m_document = m_edit->document();
        m_quietBeats = 0;
        m_last = 0;
        m_clock.start();
    }

    // A text that is assigned comes with a document of its own.
    bool hasChanged() const { return m_changed || m_edit->document() != m_document; }

    double now() const { return double(m_clock.nsecsElapsed()) / 1e6; }

    void beat()
    {
        const double at = now();
        const bool late = at - m_last > 4;
        m_result.longest = std::max(m_result.longest, at - m_last - 1);
        m_last = at;
        const bool refused = !hasChanged() && Workers::waiting().isIdle();
        const bool done = m_result.painted > 0 && isLoaded();
        if (!refused && (late || !done)) {
            m_quietBeats = 0;
        } else if (++m_quietBeats == 20) {
            m_result.idle = at - 20;
            m_result.refused = refused;
        }
    }

    QPlainTextEdit *m_edit;
    const QTextDocument *m_document = nullptr; // at the beginning
    QTimer m_beat;
    QElapsedTimer m_clock;
    Result m_result;
    double m_last = 0;
    int m_round = 0;
    int m_quietBeats = 0;
    bool m_changed = false, m_painted = false;
};

void print(const char *name, const Watch::Result &result, double slider)
{
    if (result.refused) {
        std::printf("%-28s refused  after %17.1f  longest block %6.1f\n", name, result.idle,
                    result.longest);
        return;
    }
    std::printf(
        "%-28s first screenful %7.1f  idle %7.1f  longest block %6.1f  slider %6.1f ms  memory %7.1f MB\n",
        name, result.painted, result.idle, result.longest, slider, dirtyMegabytes());
    std::fflush(stdout);
}

// A key and a step of the slider in every frame until the text is there.
class Use : public QObject {
public:
    Use(const Watch &watch, TextPane *pane, QSlider *slider)
    {
        connect(&m_frame, &QTimer::timeout, this, [this, &watch, pane, slider] {
            if (watch.isLoaded())
                return m_frame.stop();
            for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent key(type, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
                QCoreApplication::sendEvent(pane, &key);
            }
            slider->setValue(14 + ++m_frames % 8);
        });
        m_frame.start(16);
    }

private:
    QTimer m_frame;
    int m_frames = 0;
};

void openInMainWindow(const QStringList &files, bool isUsed)
{
    MainWindow window;
    window.resize(1000, 600);
    window.show();
    auto *pane = window.findChild<TextPane *>();
    auto *slider = window.findChild<QSlider *>();
    Watch watch(pane);
    watch.untilPainted([&] { pane->viewport()->update(); });
    for (const QString &file : files) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the panel before
        window.content().openText();
        QFileDialog *dialog = nullptr;
        while (!(dialog = window.findChild<QFileDialog *>()))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        dialog->selectFile(file);
        std::optional<Use> use;
        const auto result = watch.during([&] {
            QMetaObject::invokeMethod(dialog, "accept");
            if (isUsed)
                use.emplace(watch, pane, slider);
        });
        use.reset();
        const double step = watch.untilPainted([slider] { slider->setValue(slider->value() ^ 1); });
        print(qPrintable(QFileInfo(file).fileName()), result, step);
    }
}

void openBare(const QStringList &files)
{
    QPlainTextEdit edit;
    edit.resize(700, 330);
    edit.show();
    Watch watch(&edit);
    for (const QString &file : files) {
        const auto result = watch.during([&] {
            QFile content(file);
            if (content.open(QFile::ReadOnly))
                edit.setPlainText(QString::fromUtf8(content.readAll()));
        });
        QFont font = edit.font();
        font.setPointSize(font.pointSize() ^ 1);
        print(qPrintable(QFileInfo(file).fileName()), result,
              watch.untilPainted([&] { edit.setFont(font); }));
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    QStringList files = QApplication::arguments().mid(1);
    const bool bare = files.removeOne(QStringLiteral("--bare"));
    const bool isUsed = files.removeOne(QStringLiteral("--using"));
    for (QString &file : files)
        file = QFileInfo(file).absoluteFilePath();
    bare ? openBare(files) : openInMainWindow(files, isUsed);
    return 0;
}
