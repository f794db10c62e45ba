// Uses the windows at random, as nobody would but a cat on the keyboard: presses buttons and menu items
// whether or not a dialog is in front of them (as assistive programs can), types, opens dialogs in dialogs,
// opens, resizes and closes windows. What it does is a matter of the seed; each action is named on standard
// error before it happens, so that the last one is known when it ends badly. It stays in the home that it
// is started with: a dialog for files is answered, but not walked about in, where it would make folders,
// remove files and write pages all over the disk; and no page reaches a printer.
//
//   random_use [SEED [ACTIONS]]

#include "app/MainWindow.h"
#include "app/TarumineApp.h"
#include "platform/Process.h"
#include "platform/Workers.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QRandomGenerator>
#include <QSlider>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// These would end the process, or leave it.
bool endsTheUse(const QString &title)
{
    return title.contains(u"終了"_s) || title.contains(u"ヘルプ"_s) || title.contains(u"マニュアル"_s)
        || title == u"起動"_s || title == u"別スレッド"_s;
}

bool isOfFiles(const QObject *part)
{
    while (part && !qobject_cast<const QFileDialog *>(part))
        part = part->parent();
    return part;
}

class RandomUse : public QObject {
public:
    RandomUse(TarumineApp &app, quint32 seed, int actions)
        : m_app(app)
        , m_random(seed)
        , m_left(actions)
    {
        actLater();
    }

    int count() const { return m_count; }
    qint64 longest() const { return m_longest; }

private:
    // A new timer each time: one that is running would not run in the loop of a dialog that it opens.
    void actLater() { QTimer::singleShot(0, this, &RandomUse::act); }

    void act()
    {
        if (m_left-- <= 0)
            return QCoreApplication::exit();
        actLater();
        ++m_count;
        if (m_clock.isValid())
            m_longest = std::max(m_longest, m_clock.elapsed());
        m_clock.start();
        QWidget *window = any(shownWindows());
        if (!window)
            return m_app.newWindow();
        if (auto *files = qobject_cast<QFileDialog *>(window))
            return answer(files);
        switch (m_random.bounded(9)) {
        case 0:
        case 1:
        case 2:
            return press(window);
        case 3:
        case 4:
            return choose(window);
        case 5:
            return type(window);
        case 6:
            return change(window);
        case 7:
            return end(window);
        default:
            return resize(window);
        }
    }

    // What is there already, or isn't, makes it ask a question of its own.
    void answer(QFileDialog *files)
    {
        static const QStringList names{u"a.txt"_s, u"gone.txt"_s, u"a.pdf"_s, u"new.pdf"_s};
        if (m_random.bounded(3) == 0) {
            say(u"take no file"_s);
            return files->reject();
        }
        const QString &name = names[m_random.bounded(names.size())];
        say(u"take %1"_s.arg(name));
        files->selectFile(QDir::home().filePath(name));
        QMetaObject::invokeMethod(files, "accept");
    }

    void press(QWidget *window)
    {
        auto *button = any(usable<QAbstractButton>(window));
        if (!button || endsTheUse(button->text()))
            return;
        say(u"press %1"_s.arg(button->text()));
        button->click();
    }

    void choose(QWidget *window)
    {
        QList<QAction *> actions = window->findChildren<QAction *>();
        actions.removeIf([](QAction *action) {
            return !action->isEnabled() || action->isSeparator() || isOfFiles(action);
        });
        QAction *action = any(actions);
        if (!action || action->menu() || endsTheUse(action->text()))
            return;
        if (m_app.windows().size() > 3 && action->text().contains(u"新規"_s))
            return;
        say(u"choose %1"_s.arg(action->text()));
        action->trigger();
    }

    void type(QWidget *window)
    {
        static const QList<Qt::Key> keys{
            Qt::Key_A,    Qt::Key_Return, Qt::Key_Space,  Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backspace,
            Qt::Key_Left, Qt::Key_Down,   Qt::Key_Delete, Qt::Key_Home,   Qt::Key_End, Qt::Key_PageDown};
        QWidget *focus = window->focusWidget() ? window->focusWidget() : window;
        const auto *line = qobject_cast<QLineEdit *>(focus);
        if (isOfFiles(focus) || (line && line->text().contains(u'/')))
            return; // a path might lead anywhere then
        const Qt::Key key = keys[m_random.bounded(keys.size())];
        const auto modifiers = m_random.bounded(4) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        say(u"type %1 into %2"_s.arg(key).arg(QLatin1StringView(focus->metaObject()->className())));
        QTest::keyClick(focus, key, modifiers);
    }

    void change(QWidget *window)
    {
        if (auto *list = any(usable<QComboBox>(window)); list && list->count() > 0) {
            say(u"choose a row"_s);
            return list->setCurrentIndex(m_random.bounded(list->count()));
        }
        if (auto *slider = any(usable<QSlider>(window)))
            slider->setValue(m_random.bounded(slider->minimum(), slider->maximum() + 1));
        if (auto *tabs = any(usable<QTabWidget>(window)))
            tabs->setCurrentIndex(m_random.bounded(tabs->count()));
    }

    void end(QWidget *window)
    {
        if (m_random.bounded(qobject_cast<MainWindow *>(window) ? 8 : 3) != 0)
            return;
        say(u"close %1 %2"_s.arg(QLatin1StringView(window->metaObject()->className()),
                                 window->windowTitle()));
        window->close();
    }

    void resize(QWidget *window)
    {
        if (window->isWindow() && qobject_cast<MainWindow *>(window))
            window->resize(m_random.bounded(100, 1300), m_random.bounded(100, 800));
    }

    QList<QWidget *> shownWindows() const
    {
        QList<QWidget *> shown;
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible())
                shown += window;
        }
        return shown;
    }

    template <class Widget> QList<Widget *> usable(QWidget *window) const
    {
        QList<Widget *> found = window->findChildren<Widget *>();
        found.removeIf([](Widget *widget) {
            return !widget->isVisible() || !widget->isEnabled() || isOfFiles(widget);
        });
        return found;
    }

    template <class Item> Item *any(const QList<Item *> &items)
    {
        return items.isEmpty() ? nullptr : items[m_random.bounded(items.size())];
    }

    void say(const QString &what) { std::fprintf(stderr, "%d %s\n", m_count, qPrintable(what)); }

    TarumineApp &m_app;
    QRandomGenerator m_random;
    int m_left;
    int m_count = 0;
    QElapsedTimer m_clock;
    qint64 m_longest = 0; // milliseconds between two actions
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    for (const QString &name : {u"a.txt"_s, u"a.pdf"_s}) {
        QFile file(QDir::home().filePath(name));
        if (!file.open(QFile::WriteOnly))
            return 1;
        file.write("本文\n");
    }
    QDir::setCurrent(QDir::homePath());
    qputenv("CUPS_SERVER", "/nowhere");
    const auto seed = quint32(argc > 1 ? std::atoi(argv[1]) : 1);
    int done = 0;
    {
        TarumineApp app;
        app.newWindow();
        const RandomUse use(app, seed, argc > 2 ? std::atoi(argv[2]) : 1000);
        QApplication::exec();
        done = use.count();
        std::printf("%d actions with seed %u, the longest took %lld ms\n", done, seed,
                    static_cast<long long>(use.longest()));
    }
    std::fflush(stdout);
    std::_Exit(done > 0 ? 0 : 1); // as the program itself: what is still under way elsewhere just ends
}
