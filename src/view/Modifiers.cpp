#include "view/Modifiers.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

namespace {

class AppearFilter : public QObject {
public:
    AppearFilter(QWidget *widget, std::function<void()> action)
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

class FirstPaint : public QObject {
public:
    FirstPaint(QWidget *widget, std::function<void()> action)
        : QObject(widget)
        , m_action(std::move(action))
    {
        QWindow *window = widget->window()->windowHandle();
        if (!window || window->isExposed())
            finish();
        else
            window->installEventFilter(this);
    }

    bool eventFilter(QObject *window, QEvent *event) override
    {
        if (event->type() == QEvent::Expose || event->type() == QEvent::Paint) {
            window->removeEventFilter(this);
            finish();
        }
        return false;
    }

private:
    // The window paints itself while it learns that it can be seen, so the next turn is after that.
    void finish()
    {
        QTimer::singleShot(0, this, [this] {
            m_action();
            deleteLater();
        });
    }

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

QWidget *onAppear(std::function<void()> action, QWidget *widget)
{
    new AppearFilter(widget, std::move(action));
    return widget;
}

void afterFirstPaint(std::function<void()> action, QWidget *widget)
{
    new FirstPaint(widget, std::move(action));
}

QWidget *onKeys(const QList<QKeySequence> &keys, std::function<void()> action, QWidget *widget)
{
    auto *shortcut = new QAction(widget);
    shortcut->setShortcuts(keys);
    QObject::connect(shortcut, &QAction::triggered, widget, std::move(action));
    widget->addAction(shortcut);
    return widget;
}

void markOverflow(QToolButton *button, const QString &title)
{
    button->setText(QStringLiteral("»"));
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setAccessibleName(title);
}

QWidget *wrapped(QWidget *text)
{
    auto *label = qobject_cast<QLabel *>(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    return label;
}
