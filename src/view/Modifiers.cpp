#include "view/Modifiers.h"

#include <QEvent>
#include <QLabel>
#include <QShortcut>
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

class Enlarged : public QObject {
public:
    Enlarged(double factor, QWidget *text)
        : QObject(text)
        , m_factor(factor)
        , m_text(text)
    {
        text->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_text && event->type() == QEvent::ParentChange)
            m_text->parentWidget()->installEventFilter(this);
        if (event->type() == QEvent::ParentChange
            || (watched != m_text && event->type() == QEvent::FontChange))
            enlarge(m_text->parentWidget()->font());
        return false;
    }

private:
    void enlarge(const QFont &around)
    {
        QFont font; // which follows the one around it in all but its size
        font.setPointSizeF(around.pointSizeF() * m_factor);
        m_text->setFont(font);
    }

    double m_factor;
    QWidget *m_text;
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
    auto *shortcut = new QShortcut(widget);
    shortcut->setKeys(keys);
    QObject::connect(shortcut, &QShortcut::activated, widget, std::move(action));
    return widget;
}

void markOverflow(QToolButton *button, const QString &title)
{
    button->setText(QStringLiteral("»"));
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setAccessibleName(title);
}

QWidget *enlarged(double factor, QWidget *text)
{
    new Enlarged(factor, text);
    return text;
}

QWidget *wrapped(QWidget *text)
{
    auto *label = qobject_cast<QLabel *>(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    return label;
}
