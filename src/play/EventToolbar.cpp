#include "play/EventToolbar.h"

#include "play/Events.h"
#include "view/Modifiers.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(EventToolbar)
};

class EventBar : public QToolBar {
public:
    EventBar()
        : QToolBar(Titles::tr("ツールバー"))
    {
        setAccessibleName(windowTitle());
        setMovable(false);
        setFloatable(false);
        setContextMenuPolicy(Qt::PreventContextMenu); // it would offer to hide the toolbar for good
    }

protected:
    // A menu of what has no room is untrue as soon as the room is another.
    void resizeEvent(QResizeEvent *event) override
    {
        for (QMenu *menu : findChildren<QMenu *>())
            menu->close();
        QToolBar::resizeEvent(event);
    }
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
    auto *bar = new EventBar;
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
