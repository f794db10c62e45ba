// What a person does with the program, line by line, and all that is otherwise behind each line.
//
//   stories [--write] STORY ...
//
// A story is a file of lines. One that begins with "> " is done: a verb of `verbs` below, and what it is
// done to. The lines behind it are what has changed by then in all that a person, a screen reader or
// another program can find: windows, controls, menus, the text, the keyboard's place, files, standard
// output, what was started. "quietly" before a verb leaves that out. With --write the story's other lines
// are written anew, to be read before they are believed.
#include "Testing.h"
#include "app/Japanese.h"
#include "stories/Doing.h"
#include "view/ClearStyle.h"

#include <QAccessible>
#include <QApplication>
#include <QProcess>
#include <QTimer>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <cstdio>

namespace {

void hear(QAccessibleEvent *event)
{
    const QAccessibleInterface *by = event->accessibleInterface();
    if (by && event->type() == QAccessible::ValueChanged && by->role() == QAccessible::Separator)
        heard += u"value of %1"_s.arg(by->text(QAccessible::Name));
    else if (by && event->type() == QAccessible::ObjectShow && by->role() == QAccessible::Notification)
        heard += by->text(QAccessible::Name);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    else if (event->type() == QAccessible::Announcement)
        heard += static_cast<QAccessibleAnnouncementEvent *>(event)->message();
#endif
}

// The end is only noted, so that the story goes on.
class NotedEnd : public QObject {
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        const bool isEnd = event->type() == QEvent::Quit && receiver == qApp;
        if (isEnd)
            heard += u"asked to quit"_s;
        return isEnd;
    }
};

QStringList changes(const Facts &before, const Facts &after)
{
    QStringList news;
    const auto windowOf = [](const QString &what) { return what.section(u']', 0, 0) + u']'; };
    const auto isIn = [](const Facts &facts, const QString &what) {
        return std::ranges::any_of(facts, [&what](const auto &fact) { return fact.first == what; });
    };
    const auto isAsElsewhere = [&](const QString &what, const QString &is) {
        return std::ranges::any_of(before, [&](const auto &fact) {
            return is == fact.second && what.section(u']', 1).size() > 1
                && what.section(u']', 1) == fact.first.section(u']', 1);
        });
    };
    for (const auto &[what, is] : after) { // of another window only what isn't as in the first
        const bool isNew = what.startsWith(u'[') && !isIn(before, windowOf(what));
        if (isNew && what != windowOf(what) && !isAsElsewhere(what, is))
            news += what.section(u"] "_s, 1) + u": "_s + is;
        else if (!before.contains(std::pair(what, is)) && (!isNew || what == windowOf(what)))
            news += what + u": "_s + is;
    }
    for (const auto &[what, is] : before) { // a window takes along what is in it
        if (!isIn(after, what)
            && (what == windowOf(what) || !what.startsWith(u'[') || isIn(after, windowOf(what))))
            news += u"no "_s + what;
    }
    return news;
}

// In lines that are wide, but not too wide to read; each names a window once.
QString inLines(const QStringList &news)
{
    QString all, line, window;
    for (const QString &each : news) {
        const QString where = each.startsWith(u'[') ? each.section(u"] "_s, 0, 0) + u"] "_s : QString();
        const QString item = (where == window ? each.mid(where.size()) : each).trimmed();
        if (line.size() + item.size() > 150)
            all += std::exchange(line, {}) + u'\n';
        line += line.isEmpty() ? each.trimmed() : u" | "_s + item;
        window = where;
    }
    return line.isEmpty() ? all : all + line + u'\n';
}

// What really happens, in the form of the story.
QString told(const QStringList &story)
{
    QString all;
    Doing person;
    Facts seen;
    for (const QString &line : story) {
        if (line.startsWith(u'#') || line.isEmpty())
            all += line + u'\n';
        if (!line.startsWith(u"> "_s))
            continue;
        const bool isQuiet = line.startsWith(u"> quietly "_s);
        for (const QString &step : line.section(u' ', isQuiet ? 2 : 1).split(u" ; "_s))
            person.act(step);
        const Facts now = Looking().facts();
        all += line + u'\n';
        QStringList news = changes(seen, now);
        for (const QString &each : std::exchange(heard, {}))
            news += u"said: "_s + each;
        for (const QString &each : std::exchange(trouble, {}))
            all += u"trouble: "_s + each + u'\n';
        if (!isQuiet)
            all += inLines(news);
        seen = now;
    }
    return all;
}

} // namespace

int main(int argc, char *argv[])
{
    if (!std::freopen(qPrintable(QDir::home().filePath(u"stdout"_s)), "w", stdout))
        return 1;
    qputenv("PATH", QFile::encodeName(QDir::homePath()) + ':' + qgetenv("PATH"));
    adoptJapaneseLocale();
    QApplication::setStyle(new ClearStyle(u"fusion"_s));
    JapaneseApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(u"tarumine"_s);
    installJapaneseTexts();
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(hear);
    NotedEnd end;
    application.installEventFilter(&end);
    const QString path = application.arguments().last();
    const QString story = QString::fromUtf8(contentOf(path));
    QString happened;
    QTimer::singleShot(0, &application,
                       [&] { // within the loop without which Qt tells nobody of a new palette
                           happened = told(story.split(u'\n'));
                           QCoreApplication::exit();
                       });
    QCoreApplication::exec();
    if (application.arguments().contains(u"--write"_s))
        written(path, happened.trimmed().toUtf8() + '\n');
    else if (happened.trimmed() != story.trimmed()) {
        QProcess difference;
        difference.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        difference.start(u"diff"_s,
                         {u"-u"_s, path, written(QDir::home().filePath(u"happened"_s), happened.toUtf8())});
        difference.waitForFinished();
        std::fputs(difference.readAll().constData(), stderr);
        return 1;
    }
    return 0;
}
