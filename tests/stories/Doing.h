#pragma once

#include "Testing.h"
#include "app/TarumineApp.h"
#include "reading/TextPane.h"
#include "stories/Looking.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTreeView>
#include <QWheelEvent>

#include <stdexcept>

inline QString homePath(const QString &path)
{
    return path.startsWith(u'/') ? path : QDir::home().filePath(path);
}

// What couldn't be done as the story wants it; which is told even of what is done quietly.
inline QStringList trouble;

// What stands in a story for many lines, line ends and any bytes.
inline QByteArray unfolded(const QString &shown)
{
    QByteArray content = shown.toUtf8().replace("\\n", "\n");
    if (const int times = shown.section(u" times "_s, 0, 0).toInt()) {
        const QByteArray line = content.mid(content.indexOf(" times ") + 7);
        content.clear();
        for (int i = 1; i <= times; ++i)
            content += QByteArray(line).replace("##", QByteArray::number(i));
    }
    for (qsizetype at; (at = content.indexOf("\\x")) >= 0;)
        content.replace(at, 4, QByteArray::fromHex(content.mid(at + 2, 2)));
    return content;
}

// Until nobody has anything left to do but to wait for the person.
inline void settle()
{
    const auto isQuiet = [] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Workers::waiting().isIdle() && Workers::computing().isIdle() && childProcesses().isEmpty();
    };
    for (int quiet = 0; quiet < 3;)
        quiet = QTest::qWaitFor(isQuiet, 10'000) ? quiet + 1 : 3, QCoreApplication::processEvents();
    // As a desktop does when the window in front has gone.
    static QList<QPointer<QWidget>> inFront;
    inFront.removeIf([](const QPointer<QWidget> &window) { return !window || !window->isVisible(); });
    if (QWidget *window = QApplication::activeWindow())
        inFront.removeAll(window), inFront += window;
    else if (!inFront.isEmpty())
        inFront.last()->activateWindow(), QCoreApplication::processEvents();
}

/// What a person, or somebody else at this computer, can do. Each deed ends when nothing is under way any
/// more.
class Doing {
public:
    void act(const QString &line)
    {
        const QString verb = line.section(u' ', 0, 0);
        const QString rest = line.section(u' ', 1).section(u" until "_s, 0, 0);
        const auto found = verbs().find(verb);
        if (found == verbs().end())
            return trouble += u"nobody knows how to "_s + verb, void();
        try {
            found.value()(*this, rest);
        } catch (const std::out_of_range &missing) {
            trouble += QString::fromUtf8(missing.what());
        }
        settle();
        const QString end = line.section(u" until "_s, 1);
        if (!end.isEmpty() && !QTest::qWaitFor([&end] { return Looking().isSeen(end); }, 10'000))
            trouble += u"waited in vain"_s;
    }

private:
    using Verb = std::function<void(Doing &, const QString &)>;
    static const QHash<QString, Verb> &verbs()
    {
        static const QHash<QString, Verb> all{
            {u"press"_s,
             [](Doing &d, const QString &name) {
                 QWidget *button = d.part(name);
                 QTest::mouseClick(button, Qt::LeftButton, {}, {6, button->height() / 2});
             }},
            {u"do"_s,
             [](Doing &d, const QString &what) { // as assistive programs do
                 auto *heard = QAccessible::queryAccessibleInterface(d.part(what.section(u' ', 1)));
                 heard->actionInterface()->doAction(what.section(u' ', 0, 0));
             }},
            {u"choose"_s, [](Doing &d, const QString &path) { d.item(path)->trigger(); }},
            {u"keys"_s,
             [](Doing &, const QString &keys) {
                 for (const QString &each : keys.split(u' ')) {
                     QWidget *to = QApplication::activePopupWidget();
                     to = to                           ? to
                         : QApplication::focusWidget() ? QApplication::focusWidget()
                                                       : QApplication::activeWindow();
                     const QKeyCombination key = QKeySequence(each)[0];
                     QTest::keyClick(to, key.key(), key.keyboardModifiers());
                 }
             }},
            {u"type"_s,
             [](Doing &, const QString &text) {
                 for (const QChar each : text) // with an input method what isn't on the keys
                     each.unicode() < 0x7f ? QTest::keyClick(QApplication::focusWidget(), each.toLatin1())
                                           : compose({}, each);
             }},
            {u"compose"_s, [](Doing &, const QString &text) { compose(text, {}); }},
            {u"file"_s,
             [](Doing &, const QString &what) {
                 const QString path = homePath(what.section(u' ', 0, 0));
                 QDir().mkpath(QFileInfo(path).path());
                 QByteArray content = unfolded(what.section(u' ', 1));
                 written(path, content);
                 if (content.startsWith("#!"))
                     QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
             }},

            {u"tick"_s,
             [](Doing &, const QString &name) { window()->findChild<QAbstractButton *>(name)->click(); }},
            {u"take"_s,
             [](Doing &, const QString &path) {
                 auto *name = window()->findChild<QLineEdit *>(u"fileNameEdit"_s);
                 name->setText(homePath(path));
                 QTest::keyClick(name, Qt::Key_Return);
             }},
            {u"drop"_s,
             [](Doing &d, const QString &what) {
                 auto *to = d.text()->viewport();
                 const auto data = mimeOf(what);
                 QDragEnterEvent enter({20, 20}, Qt::CopyAction | Qt::MoveAction, data.get(),
                                       Qt::LeftButton, {});
                 QCoreApplication::sendEvent(to, &enter);
                 QDropEvent drop({20, 20}, Qt::MoveAction, data.get(), Qt::LeftButton, {});
                 QCoreApplication::sendEvent(to, &drop);
                 heard += u"dropped: "_s + nameOf(drop.dropAction());
             }},
            {u"clipboard"_s,
             [](Doing &, const QString &what) {
                 QGuiApplication::clipboard()->setMimeData(mimeOf(what).release());
             }},
            {u"select"_s,
             [](Doing &d, const QString &what) {
                 auto *pane = d.text();
                 QTextCursor cursor = pane->textCursor();
                 cursor.setPosition(what.section(u' ', 0, 0).toInt());
                 cursor.setPosition(what.section(u' ', -1).toInt(), QTextCursor::KeepAnchor);
                 pane->setTextCursor(cursor);
             }},
            {u"drag"_s, [](Doing &d, const QString &what) { d.drag(what.split(u' ')); }},
            {u"turn"_s,
             [](Doing &d, const QString &what) {
                 QWidget *to = d.text()->viewport();
                 QWheelEvent event({20, 20}, to->mapToGlobal(QPointF(20, 20)), {}, {0, what.toInt()}, {},
                                   Qt::ControlModifier, Qt::NoScrollPhase, false);
                 QCoreApplication::sendEvent(to, &event);
             }},
            {u"row"_s,
             [](Doing &d, const QString &name) {
                 auto *tree = d.window()->findChild<QTreeView *>();
                 const auto found = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, name,
                                                         1, Qt::MatchExactly | Qt::MatchRecursive);
                 const QPoint place = found.isEmpty() ? QPoint(50, tree->height() - 9)
                                                      : tree->visualRect(found.first()).center();
                 QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
             }},
            {u"go"_s,
             [](Doing &d, const QString &title) {
                 d.named(title)->activateWindow();
                 QVERIFY(QTest::qWaitForWindowActive(d.named(title)));
             }},
            {u"size"_s,
             [](Doing &d, const QString &size) {
                 d.window()->resize(size.section(u' ', 0, 0).toInt(), size.section(u' ', 1).toInt());
             }},
            {u"desk"_s,
             [](Doing &, const QString &colour) {
                 QPalette palette{QColor(colour)};
                 QApplication::style()->polish(palette);
                 QApplication::setPalette(palette);
             }},
            {u"font"_s,
             [](Doing &, const QString &points) {
                 QFont font = QApplication::font();
                 font.setPointSizeF(points.toDouble());
                 QApplication::setFont(font);
             }},
            {u"close"_s, [](Doing &d, const QString &) { d.window()->close(); }},
            {u"start"_s, [](Doing &d, const QString &) { d.m_app.newWindow(); }},
        };
        return all;
    }

    static void compose(const QString &shown, const QString &entered)
    {
        if (!QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled))
            throw std::out_of_range("no input method here");
        QInputMethodEvent event(shown, {});
        event.setCommitString(entered);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }

    static std::unique_ptr<QMimeData> mimeOf(const QString &what)
    {
        auto data = std::make_unique<QMimeData>();
        if (what.startsWith(u"file "_s) || what.startsWith(u"https:"_s)) {
            QList<QUrl> urls;
            for (const QString &each : what.section(u"file "_s, what.startsWith(u"file "_s)).split(u' '))
                urls += each.contains(u':') ? QUrl(each) : QUrl::fromLocalFile(homePath(each));
            data->setUrls(urls);
        } else {
            data->setText(QString::fromUtf8(unfolded(what)));
        }
        return data;
    }

    // drag [double] FROM TO: between characters of the text
    void drag(QStringList what)
    {
        auto *pane = text();
        const auto placeOf = [pane](const QString &character) {
            QTextCursor cursor(pane->document());
            cursor.setPosition(character.toInt());
            return pane->cursorRect(cursor).center() + QPoint(2, 0);
        };
        const QPoint from = placeOf(what[what.size() - 2]), to = placeOf(what.last());
        QWidget *view = pane->viewport();
        if (what.first() == u"double"_s)
            QTest::mouseDClick(view, Qt::LeftButton, {}, from),
                QTest::mousePress(view, Qt::LeftButton, {}, from);
        else
            QTest::mousePress(view, Qt::LeftButton, {}, from);
        QTest::mouseMove(view, to);
        QTest::mouseRelease(view, Qt::LeftButton, {}, to);
    }

    QWidget *named(const QString &title) const
    {
        for (QWidget *window : Looking::shownWindows()) {
            if (Looking::nameOfWindow(window) == title)
                return window;
        }
        throw std::out_of_range("no window is called " + title.toStdString());
    }

    // Where a person would look: the dialog that is in the way, or the window in front.
    static QWidget *window()
    {
        QWidget *front = QApplication::activeWindow();
        return front ? front : Looking::shownWindows().first();
    }

    static TextPane *text()
    {
        auto *pane = window()->findChild<TextPane *>();
        return pane ? pane : throw std::out_of_range("no text here");
    }

    static QWidget *part(const QString &name)
    {
        int others = name.section(u" #"_s, 1).toInt() - 1; // of the same name before it
        for (QWidget *part : window()->findChildren<QWidget *>()) {
            if (part->isVisible() && part->window() == window() && part->focusPolicy() & Qt::TabFocus
                && Looking::kind(part).section(u' ', 1) == name.section(u" #"_s, 0, 0) && others-- <= 0)
                return part;
        }
        throw std::out_of_range("nothing is called " + name.toStdString());
    }

    static QList<QAction *> titles()
    {
        const auto *main = qobject_cast<QMainWindow *>(window());
        return main ? main->menuBar()->actions() : throw std::out_of_range("no menus here");
    }

    static QAction *item(const QString &path)
    {
        QList<QAction *> items;
        if (auto *popup = qobject_cast<QMenu *>(QApplication::activePopupWidget()))
            items = popup->actions();
        else
            items = titles();
        QAction *found = nullptr;
        for (const QString &title : path.split(u'/')) {
            const auto at =
                std::ranges::find_if(items, [&](QAction *each) { return each->text().startsWith(title); });
            if (at == items.end())
                throw std::out_of_range("no item is called " + title.toStdString());
            found = *at;
            if (found->menu()) {
                emit found->menu()->aboutToShow();
                items = found->menu()->actions();
            }
        }
        return found;
    }

    TarumineApp m_app;
};
