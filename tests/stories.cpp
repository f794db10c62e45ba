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
#include "app/MainWindow.h"
#include "app/SettingsWindow.h"
#include "app/TarumineApp.h"
#include "play/JourneyBoard.h"
#include "reading/TextPane.h"
#include "view/ClearStyle.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaEnum>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QTextBlock>
#include <QTimer>
#include <QTreeView>
#include <QWheelEvent>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <algorithm>
#include <cstdio>

#include <pwd.h>
#include <unistd.h>

namespace {

using Facts = QList<std::pair<QString, QString>>; // of what, and what there is to say of it

// In a line, and no longer than one can read.
QString brief(QString text)
{
    text.replace(QDir::homePath(), u"~"_s);
    const qsizetype length = text.size();
    if (length > 90)
        text = text.left(50) + u"…"_s + text.right(30) + u" (%1)"_s.arg(length);
    for (const auto &[code, shown] :
         {std::pair<QChar, QChar>(u'\n', u'⏎'), {u'\u2028', u'⏎'}, {u'\t', u'⇥'}, {u'\ufeff', u'∅'}})
        text.replace(code, shown);
    for (QChar &each : text)
        each = each.isPrint() || each.isSurrogate() ? each : QChar(u'�');
    return text;
}

template <class Enum> QString nameOf(Enum value)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(value));
}

QString homePath(const QString &path)
{
    return path.startsWith(u'/') ? path : QDir::home().filePath(path);
}

// What a screen reader was told since the last time, apart from what it finds when it looks.
QStringList heard;

// What couldn't be done as the story wants it; which is told even of what is done quietly.
QStringList trouble;

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

// What stands in a story for many lines, line ends and any bytes.
QByteArray unfolded(const QString &shown)
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

class Looking {
public:
    Facts facts()
    {
        const QWidgetList windows = shownWindows();
        for (QWidget *window : windows)
            lookAtWindow(window);
        const QWidget *focus = QApplication::focusWidget();
        add(u"keyboard"_s, focus ? kind(focus) + u" in "_s + nameOfWindow(focus->window()) : u"nowhere"_s);
        lookAtFiles();
        add(u"clipboard"_s, QGuiApplication::clipboard()->text());
        const QStringList running = childProcesses();
        if (!running.isEmpty())
            add(u"running"_s, QString::number(running.size()));
        return std::move(m_facts);
    }

    bool isSeen(const QString &words)
    {
        return heard.contains(words) || std::ranges::any_of(facts(), [&words](const auto &fact) {
                   return (fact.first + u": "_s + fact.second).contains(words);
               });
    }

    // The latest last; a dialog comes behind what it belongs to.
    static QWidgetList shownWindows()
    {
        QWidgetList windows = QApplication::topLevelWidgets();
        windows.removeIf(
            [](const QWidget *w) { return !w->isVisible() || w->windowType() == Qt::ToolTip; });
        std::ranges::sort(windows, {}, [](QWidget *w) {
            return std::tuple(bool(qobject_cast<QMenu *>(w)), bool(w->parentWidget()),
                              bool(qobject_cast<SettingsWindow *>(w)), w->windowTitle());
        });
        return windows;
    }

    // As a screen reader names it.
    static QString kind(const QWidget *widget)
    {
        auto *heard = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        return nameOf(heard->role()) + u' ' + heard->text(QAccessible::Name);
    }

    static QString nameOfWindow(const QWidget *window)
    {
        if (const auto *box = qobject_cast<const QMessageBox *>(window))
            return box->text();
        return qobject_cast<const QMenu *>(window) ? u"menu"_s : window->windowTitle();
    }

private:
    void add(QString what, const QString &is)
    {
        const auto same = std::ranges::count_if(m_facts, [&](const auto &fact) {
            return fact.first == what || fact.first.startsWith(what + u" #"_s);
        });
        m_facts.emplaceBack(same ? what + u" #%1"_s.arg(same + 1) : what, brief(is));
    }

    void lookAtWindow(QWidget *window)
    {
        m_where = u'[' + nameOfWindow(window) + u"] "_s;
        QStringList is;
        if (window->parentWidget())
            is += u"over "_s + window->parentWidget()->window()->windowTitle();
        if (window->windowModality() != Qt::NonModal)
            is +=
                window->windowModality() == Qt::WindowModal ? u"holds up that window"_s : u"holds up all"_s;
        if (window->isMinimized())
            is += u"minimized"_s;
        if (window->isActiveWindow())
            is += u"in front"_s;
        add(m_where.trimmed(), is.join(u", "_s));
        if (const auto *main = qobject_cast<const QMainWindow *>(window)) {
            for (const QAction *menu : main->menuBar()->actions())
                lookAtItems(menu->menu()->actions(), menu->text().left(menu->text().indexOf(u'(')) + u'/');
        }
        if (const auto *files = qobject_cast<const QFileDialog *>(window))
            return add(m_where + u"takes"_s, files->nameFilters().join(u' '));
        if (window->inherits("QAbstractPrintDialog")) {
            for (const QString &name : {u"noDuplex"_s, u"duplexLong"_s, u"duplexShort"_s, u"numbers"_s}) {
                if (const auto *button = window->findChild<QAbstractButton *>(name))
                    add(m_where + name, button->text());
            }
            return;
        }
        if (const auto *menu = qobject_cast<const QMenu *>(window)) {
            const QWidget *focus = QApplication::focusWidget();
            const QRect caret = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect();
            if ((focus->mapToGlobal(caret.center()) - menu->pos()).manhattanLength() > 20)
                add(m_where + u"not at the caret"_s, {});
            return lookAtItems(menu->actions(), {});
        }
        lookAtParts(window);
    }

    void lookAtItems(const QList<QAction *> &items, const QString &menu)
    {
        QStringList all, disabled, checked;
        for (const QAction *item : items) {
            if (item->isSeparator())
                continue;
            QStringList is{item->text()};
            for (const QKeySequence &keys : item->shortcuts())
                is += keys.toString();
            all += is.join(u' ');
            if (!item->isEnabled())
                disabled += item->text();
            if (item->isChecked())
                checked += item->text();
            if (item->menu())
                lookAtItems(item->menu()->actions(), menu + item->text() + u'/');
        }
        m_facts.emplaceBack(m_where + menu, all.join(u", "_s));
        add(m_where + menu + u" disabled"_s, disabled.join(u", "_s));
        add(m_where + menu + u" checked"_s, checked.join(u", "_s));
    }

    // What a boat does to the right of an anchor is seen by the eye alone.
    void lookAtBoard(const QWidget &board)
    {
        QStringList places;
        for (const QPushButton *button : board.window()->findChildren<QPushButton *>()) {
            const QPoint place = board.mapFromGlobal(button->mapToGlobal(QPoint()));
            if (button->isVisible() && button->window() == board.window() && board.rect().contains(place)
                && !board.isAncestorOf(button))
                places += u"%1 at %2, %3"_s.arg(button->text()).arg(place.x()).arg(place.y());
        }
        add(m_where + u"board"_s, places.join(u"; "_s));
    }

    void lookAtParts(const QWidget *whole)
    {
        for (QWidget *part : whole->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!part->isVisible() || part->isWindow() || qobject_cast<QMenuBar *>(part))
                continue;
            if (auto *heard = QAccessible::queryAccessibleInterface(part); isOfInterest(*part, *heard))
                addPart(*part, brief(kind(part).replace(QLatin1String(qVersion()), u"…"_s)),
                        stateOf(*part, *heard));
            if (const auto *board = qobject_cast<JourneyBoard *>(part))
                lookAtBoard(*board);
            if (auto *pane = qobject_cast<TextPane *>(part))
                lookAtPane(*pane);
            else if (auto *tree = qobject_cast<QTreeView *>(part))
                lookAtRows(*tree, {}, 1);
            else if (!qobject_cast<QComboBox *>(part))
                lookAtParts(part);
        }
    }

    // Labels change their names.
    void addPart(const QWidget &part, const QString &name, const QString &is)
    {
        if (qobject_cast<const QLabel *>(&part)) {
            QString text = name.section(u' ', 1);
            if (text == QSysInfo::machineHostName())
                text = u"(this computer)"_s;
            else if (text == QString::fromLocal8Bit(::getpwuid(::getuid())->pw_name))
                text = u"(whoever is there)"_s;
            add(m_where + u"label"_s, text + QString(is).replace(u"fixed"_s, QString()));
        } else
            add(m_where + name, is);
    }

    static bool isOfInterest(const QWidget &part, const QAccessibleInterface &heard)
    {
        return (part.focusPolicy() & Qt::TabFocus || qobject_cast<const QLabel *>(&part))
            && (!heard.text(QAccessible::Name).isEmpty() || qobject_cast<const QLineEdit *>(&part));
    }

    static bool isClipped(const QWidget &part)
    {
        const auto *button = qobject_cast<const QPushButton *>(&part);
        const QSize least = button ? QSize(button->fontMetrics().horizontalAdvance(button->text()), 0)
                                   : QSize(0, part.minimumSizeHint().height());
        return part.width() < least.width() || part.height() < least.height();
    }

    static bool isWhole(const QWidget &part) { return part.visibleRegion().boundingRect() == part.rect(); }

    static QString stateOf(QWidget &part, QAccessibleInterface &heard)
    {
        QStringList is;
        if (const QString said = heard.text(QAccessible::Description); !said.isEmpty())
            is += said;
        if (auto *value = heard.valueInterface())
            is += value->currentValue().toString();
        else if (const QString text = heard.text(QAccessible::Value); !text.isEmpty())
            is += u"“%1”"_s.arg(text);
        const auto state = heard.state();
        for (const auto &[isSo, word] : {std::pair(bool(state.disabled), u"disabled"_s),
                                         {bool(state.checked), u"checked"_s},
                                         {bool(state.expanded), u"open"_s},
                                         {bool(state.readOnly), u"fixed"_s},
                                         {isClipped(part), u"clipped"_s},
                                         {!isWhole(part), u"partly hidden"_s}}) {
            if (isSo)
                is += word;
        }
        if (const auto *list = qobject_cast<const QComboBox *>(&part)) {
            for (int i = 0; i < list->count(); ++i)
                is += list->itemText(i) + (list->itemIcon(i).isNull() ? u""_s : u"*"_s);
        }
        return is.join(u", "_s);
    }

    void lookAtPane(TextPane &pane)
    {
        const QTextCursor cursor = pane.textCursor();
        add(m_where + u"caret"_s,
            cursor.hasSelection() ? u"%1 to %2"_s.arg(cursor.anchor()).arg(cursor.position())
                                  : QString::number(cursor.position()));
        if (pane.verticalScrollBar()->value() > 0)
            add(m_where + u"scrolled to"_s, pane.cursorForPosition({2, 2}).block().text());
        auto *heard = QAccessible::queryAccessibleInterface(&pane)->textInterface();
        const QRect caret(pane.viewport()->mapToGlobal(pane.cursorRect().topLeft()),
                          pane.cursorRect().size());
        if (!heard->characterRect(heard->cursorPosition()).adjusted(-9, -9, 9, 9).intersects(caret))
            add(m_where + u"caret elsewhere for a screen reader"_s, {});
        add(m_where + u"points"_s, QString::number(pane.font().pointSizeF()));
        QStringList marks;
        for (const auto &mark : pane.extraSelections())
            marks += u"%1%2"_s.arg(mark.cursor.selectionStart())
                         .arg(mark.format.background().color().lightness() > 127 ? u""_s : u" dark"_s);
        add(m_where + u"marks"_s, marks.join(u' '));
    }

    void lookAtRows(const QTreeView &tree, const QModelIndex &parent, int level)
    {
        for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
            const QModelIndex index = tree.model()->index(row, 0, parent);
            const bool isCurrent = tree.selectionModel()->isSelected(index);
            add(m_where + u"row "_s + index.data().toString(),
                index.data(Qt::AccessibleDescriptionRole).toString()
                    + (isCurrent ? u", selected"_s : u""_s));
            if (tree.isExpanded(index))
                lookAtRows(tree, index, level + 1);
        }
    }

    void lookAtFiles()
    {
        QStringList paths;
        for (QDirIterator all(QDir::homePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
             all.hasNext();)
            paths += all.next();
        paths.sort();
        for (const QString &path : std::as_const(paths)) {
            const QString name = QDir::home().relativeFilePath(path);
            if (name.startsWith(u"cache"_s) || name.endsWith(u".lock"_s) || name.startsWith(u"share/"_s)
                || name.endsWith(u"QtProject.conf"_s))
                continue;
            const QByteArray content = contentOf(path);
            QString shown = QString::fromUtf8(content);
            if (content.startsWith("%PDF")) {
                QProcess reader;
                reader.start(u"pdftotext"_s, {u"-raw"_s, path, u"-"_s});
                reader.waitForFinished();
                shown = QString::fromUtf8(reader.readAll());
                shown.prepend(u"%1 pages: "_s.arg(shown.count(u'\f')));
            }
            if (name.endsWith(u".conf"_s)) {
                for (const QString &line : shown.split(u'\n', Qt::SkipEmptyParts))
                    m_facts.emplaceBack(u"kept "_s + brief(line.section(u'=', 0, 0)),
                                        brief(line.section(u'=', 1)));
            } else if (name == u"stdout"_s) {
                m_facts.emplaceBack(u"printed"_s,
                                    u"%1: %2"_s.arg(content.count('\n')).arg(brief(shown.trimmed())));
            } else {
                static const QRegularExpression moment(u"\\d{8}-\\d{6}-\\d+"_s);
                m_facts.emplaceBack(u"file "_s + QString(name).replace(moment, u"…"_s), brief(shown));
            }
        }
    }

    Facts m_facts;
    QString m_where;
};

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

// Until nobody has anything left to do but to wait for the person.
void settle()
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
