#include "main_window/ContentView.h"

#include "main_window/Columns.h"
#include "reading/EncodingMenu.h"
#include "reading/FindBar.h"
#include "reading/TextPane.h"

#include <QCoreApplication>
#include <QMenu>

// The menu items that concern what is in a main window.

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(ContentMenus)
};

} // namespace

void ContentView::fillFileMenu(QMenu &menu)
{
    const auto add = [this, &menu](const QString &title, QKeySequence::StandardKey key,
                                   void (ContentView::*act)()) {
        QAction *action = menu.addAction(title);
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, m_columns, [this, act] { (this->*act)(); });
    };
    add(Titles::tr("読込(&O)"), QKeySequence::Open, &ContentView::openText);
    add(Titles::tr("簡易PDF(&P)"), QKeySequence::Print, &ContentView::saveUntitled);
}

// Whether there is something to paste is asked when somebody looks: it is others who know, and they may
// change it at any time. The key of the item works whatever it shows.
static void followClipboard(QAction *paste, TextPane *pane, QMenu *menu)
{
    QObject::connect(menu, &QMenu::aboutToShow, paste, [=] { paste->setEnabled(pane->canPaste()); });
    QObject::connect(menu, &QMenu::aboutToHide, paste, [=] { paste->setEnabled(true); });
}

// The text pane is the one text in the window, so it is what these items act on, also while a
// button has the keyboard focus.
void ContentView::fillEditMenu(QMenu &menu)
{
    TextPane *pane = m_textPane;
    const auto add = [&menu, pane](const QString &title, QKeySequence::StandardKey key,
                                   void (TextPane::*act)()) {
        QAction *action = menu.addAction(title);
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, pane, act);
        pane->addAction(action);
        return action;
    };
    QAction *undo = add(Titles::tr("元に戻す(&U)"), QKeySequence::Undo, &TextPane::undo);
    QAction *redo = add(Titles::tr("やり直す(&R)"), QKeySequence::Redo, &TextPane::redo);
    pane->addAction(menu.addSeparator());
    QAction *cut = add(Titles::tr("切り取り(&T)"), QKeySequence::Cut, &TextPane::cut);
    QAction *copy = add(Titles::tr("コピー(&C)"), QKeySequence::Copy, &TextPane::copy);
    QAction *paste = add(Titles::tr("貼り付け(&P)"), QKeySequence::Paste, &TextPane::paste);
    pane->addAction(menu.addSeparator());
    add(Titles::tr("すべてを選択(&A)"), QKeySequence::SelectAll, &TextPane::selectAll);

    menu.addSeparator();
    addFindItems(menu);

    followClipboard(paste, pane, &menu);
    QObject::connect(pane, &TextPane::menuMade, paste,
                     [=](QMenu *own) { followClipboard(paste, pane, own); });
    for (QAction *action : {cut, copy})
        action->setEnabled(false);
    follow(
        undo, [can = text.canUndo()] { return can.value(); }, [undo](bool can) { undo->setEnabled(can); });
    follow(
        redo, [can = text.canRedo()] { return can.value(); }, [redo](bool can) { redo->setEnabled(can); });
    QObject::connect(pane, &TextPane::copyAvailable, cut, &QAction::setEnabled);
    QObject::connect(pane, &TextPane::copyAvailable, copy, &QAction::setEnabled);
}

void ContentView::addFindItems(QMenu &menu)
{
    const auto add = [this, &menu](const QString &title, const QList<QKeySequence> &keys,
                                   void (FindBar::*act)()) {
        QAction *action = menu.addAction(title);
        action->setShortcuts(keys);
        QObject::connect(action, &QAction::triggered, m_columns, [this, act] { (findBar().*act)(); });
    };
    add(Titles::tr("検索(&F)…"), {QKeySequence::Find}, &FindBar::open);
    add(Titles::tr("次を検索(&N)"), {Qt::Key_F3, Qt::CTRL | Qt::Key_G}, &FindBar::findNext);
    add(Titles::tr("前を検索(&V)"), {Qt::SHIFT | Qt::Key_F3, Qt::CTRL | Qt::SHIFT | Qt::Key_G},
        &FindBar::findPrevious);
}

void ContentView::fillViewMenu(QMenu &menu)
{
    QAction *sidebar = menu.addAction(Titles::tr("サイドバー(&S)"));
    sidebar->setShortcut(Qt::Key_F9);
    sidebar->setCheckable(true);
    sidebar->setChecked(m_columns->isSidebarShown());
    QObject::connect(sidebar, &QAction::toggled, m_columns, &Columns::setSidebarShown);
    menu.addSeparator();

    const auto add = [this, &menu](const QString &title, const QKeySequence &key,
                                   const std::function<double()> &size) {
        QAction *action = menu.addAction(title);
        action->setShortcut(key);
        QObject::connect(action, &QAction::triggered, m_columns,
                         [this, size] { fontSize = FontSize::allowed(size()); });
        return action;
    };
    const auto step = [this, &add](const QString &title, double points, double last) {
        QAction *action = add(title, {}, [this, points] { return fontSize + points; });
        follow(
            action, [this, last] { return fontSize.value() != last; },
            [action](bool can) { action->setEnabled(can); });
        return action;
    };
    // The plus sign shares its key with another character on most keyboards; both do.
    step(Titles::tr("文字を大きく(&L)"), FontSize::step, FontSize::largest)
        ->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal),
                        QKeySequence(Qt::CTRL | Qt::Key_Semicolon)});
    step(Titles::tr("文字を小さく(&M)"), -FontSize::step, FontSize::smallest)
        ->setShortcut(Qt::CTRL | Qt::Key_Minus);
    add(Titles::tr("標準の大きさ(&N)"), Qt::CTRL | Qt::Key_0, [] { return FontSize::initial; });
    menu.addSeparator();
    fillEncodingMenu(*menu.addMenu(Titles::tr("文字コード(&E)")), m_textLoading);
}
