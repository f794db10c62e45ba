#pragma once

#include "Testing.h"
#include "app/SettingsWindow.h"
#include "play/JourneyBoard.h"
#include "reading/TextPane.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaEnum>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTreeView>

#include <algorithm>

#include <pwd.h>
#include <unistd.h>

using Facts = QList<std::pair<QString, QString>>; // of what, and what there is to say of it

// In a line, and no longer than one can read.
inline QString brief(QString text)
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

// What a screen reader was told since the last time, apart from what it finds when it looks.
inline QStringList heard;

/// All that a person, a screen reader or another program can find now.
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
