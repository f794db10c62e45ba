#include "app/Menus.h"

#include "app/About.h"
#include "app/MainWindow.h"
#include "app/TarumineApp.h"
#include "view/Modifiers.h"

#include <QActionGroup>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QToolButton>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(Menus)
};

template <class Receiver, class Action>
QAction *add(QMenu *menu, const QString &title, const QKeySequence &shortcut, Receiver *receiver,
             Action action)
{
    QAction *item = menu->addAction(title);
    item->setShortcut(shortcut);
    item->setMenuRole(QAction::NoRole); // an item is what we say it is, not what its title suggests
    QObject::connect(item, &QAction::triggered, receiver, action);
    return item;
}

void addFileMenu(QMenuBar *bar, MainWindow &window, TarumineApp &app)
{
    QMenu *menu = bar->addMenu(Titles::tr("ファイル(&F)"));
    add(menu, Titles::tr("新規ウインドウ(&N)"), QKeySequence::New, &app, &TarumineApp::newWindow);
    menu->addSeparator();
    window.content().fillFileMenu(*menu);
    menu->addSeparator();
    add(menu, Titles::tr("Tarumine について(&A)"), {}, &window, [&window] {
        showAbout(&window);
    })->setMenuRole(QAction::AboutRole);
    menu->addSeparator();
    add(menu, Titles::tr("ウインドウを閉じる(&C)"), QKeySequence::Close, &window, &QWidget::close);
    add(menu, Titles::tr("Tarumine を終了(&Q)"), quitKey(), qApp, &QCoreApplication::quit)
        ->setMenuRole(QAction::QuitRole);
}

void addEditMenu(QMenuBar *bar, MainWindow &window, TarumineApp &app)
{
    QMenu *menu = bar->addMenu(Titles::tr("編集(&E)"));
    window.content().fillEditMenu(*menu);
    menu->addSeparator();
    add(menu, Titles::tr("設定(&S)…"), Qt::CTRL | Qt::Key_Comma, &app, &TarumineApp::showSettings)
        ->setMenuRole(QAction::PreferencesRole);
}

void addWindowMenu(QMenuBar *bar, MainWindow &window, TarumineApp &app)
{
    QMenu *menu = bar->addMenu(Titles::tr("ウインドウ(&W)"));
    add(menu, Titles::tr("最小化(&M)"), Qt::CTRL | Qt::Key_M, &window, &QWidget::showMinimized);
    menu->addSeparator();
    auto *list = new QActionGroup(menu);
    // The list is made when it is looked at.
    QObject::connect(menu, &QMenu::aboutToShow, list, [menu, list, &window, &app] {
        qDeleteAll(list->actions());
        for (const auto &other : app.windows()) {
            QAction *item = add(menu, other->windowTitle(), {}, other.get(), [shown = other.get()] {
                shown->setWindowState(shown->windowState() & ~Qt::WindowMinimized);
                shown->raise();
                shown->activateWindow();
            });
            list->addAction(item);
            item->setCheckable(true);
            item->setChecked(other.get() == &window);
        }
    });
}

void addHelpMenu(QMenuBar *bar, MainWindow &window, TarumineApp &app)
{
    QMenu *menu = bar->addMenu(Titles::tr("ヘルプ(&H)"));
    add(menu, Titles::tr("Tarumine ヘルプ…"), {}, &app, &TarumineApp::openHelpSite);
    add(menu, Titles::tr("オンラインヘルプ…"), {}, &app, [] {});
    add(menu, Titles::tr("添付マニュアルをお読みください"), {}, &app,
        [&app, &window] { app.openManual(&window); });
}

// Of whatever has the keyboard, where it is edited.
void openContextMenu()
{
    QWidget *focused = QApplication::focusWidget();
    if (!focused)
        return;
    const QPoint place = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
    QCoreApplication::sendEvent(focused, &event);
}

} // namespace

void addMenus(MainWindow &window, TarumineApp &app)
{
    QMenuBar *bar = window.menuBar();
    addFileMenu(bar, window, app);
    addEditMenu(bar, window, app);
    window.content().fillViewMenu(*bar->addMenu(Titles::tr("表示(&V)")));
    addWindowMenu(bar, window, app);
    addHelpMenu(bar, window, app);
    const auto enterTheBar = [bar] {
        bar->setFocus(Qt::MenuBarFocusReason);
        bar->setActiveAction(bar->actions().first());
    };
    // As on every desktop; Qt leaves these to us.
    onKeys({Qt::Key_F10}, enterTheBar, &window);
    onKeys({Qt::SHIFT | Qt::Key_F10}, openContextMenu, &window);
    for (QToolButton *button : bar->findChildren<QToolButton *>())
        markOverflow(button, Titles::tr("その他のメニュー"));
}
