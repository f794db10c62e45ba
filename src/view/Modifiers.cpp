#include "view/Modifiers.h"

#include <QEvent>
#include <QLabel>

namespace {

class Appearance : public QObject {
public:
    Appearance(QWidget *widget, std::function<void()> action)
        : QObject(widget)
        , m_action(std::move(action))
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Show && !event->spontaneous())
            m_action();
        return false;
    }

private:
    std::function<void()> m_action;
};

} // namespace

QWidget *visibleWhen(std::function<bool()> condition, QWidget *widget)
{
    follow(widget, std::move(condition), [widget](bool visible) {
        // Outside a window it would come up as a window of its own; its parent will show it.
        if (!visible || widget->parentWidget())
            widget->setVisible(visible);
    });
    return widget;
}

QWidget *named(const QString &name, QWidget *widget)
{
    widget->setAccessibleName(name);
    return widget;
}

QWidget *onAppear(std::function<void()> action, QWidget *widget)
{
    new Appearance(widget, std::move(action));
    return widget;
}

QWidget *wrapped(QWidget *text)
{
    auto *label = qobject_cast<QLabel *>(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    return label;
}
