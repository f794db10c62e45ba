#include "play/EventToolbar.h"

#include "play/Events.h"
#include "view/Modifiers.h"

#include <QAction>
#include <QCoreApplication>
#include <QToolBar>
#include <QToolButton>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(EventToolbar)
};

QWidget *flexibleSpace()
{
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return space;
}

} // namespace

QToolBar *EventToolbar(const std::function<void(const Event &)> &pressed)
{
    auto *bar = new QToolBar(Titles::tr("ツールバー"));
    bar->setAccessibleName(bar->windowTitle());
    bar->setMovable(false);
    bar->setFloatable(false);
    for (const Event &event : events()) {
        QAction *action = bar->addAction(event.label);
        QObject::connect(action, &QAction::triggered, bar, [pressed, &event] { pressed(event); });
        if (&event == &events().front())
            bar->addWidget(flexibleSpace());
    }
    // Toolbars leave their buttons to the mouse; these have no other way to be pressed. A click leaves
    // the keyboard where it is.
    for (QToolButton *button : bar->findChildren<QToolButton *>()) {
        button->setFocusPolicy(Qt::TabFocus);
        button->setToolTip({}); // it would repeat the label, and a screen reader would read it out, too
        if (!button->defaultAction())
            markOverflow(button, Titles::tr("その他の出来事"));
    }
    return bar;
}
