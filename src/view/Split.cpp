#include "view/Split.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>

namespace {

class Boundary : public QSplitterHandle {
public:
    explicit Boundary(Split *split)
        : QSplitterHandle(split->orientation(), split)
    {
        setFocusPolicy(Qt::TabFocus);
    }

    int place() const { return orientation() == Qt::Horizontal ? x() : y(); }
    std::pair<int, int> range() const
    {
        int least = 0, most = 0;
        splitter()->getRange(splitter()->indexOf(const_cast<Boundary *>(this)), &least, &most);
        return {least, most};
    }

    void moveTo(int place)
    {
        moveSplitter(closestLegalPosition(place));
        QAccessibleValueChangeEvent event(this, this->place());
        QAccessible::updateAccessibility(&event);
    }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        constexpr int step = 10;
        const bool horizontal = orientation() == Qt::Horizontal;
        const int key = event->key();
        if (key == (horizontal ? Qt::Key_Left : Qt::Key_Up))
            moveTo(place() - step);
        else if (key == (horizontal ? Qt::Key_Right : Qt::Key_Down))
            moveTo(place() + step);
        else if (key == Qt::Key_Home)
            moveTo(range().first);
        else if (key == Qt::Key_End)
            moveTo(range().second);
        else
            QSplitterHandle::keyPressEvent(event);
    }

    // A grip that can be made out; the styles draw a few dots in the shade of the window, or nothing.
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (hasFocus()) {
            painter.fillRect(rect(), palette().highlight());
            return;
        }
        constexpr int length = 24;
        constexpr int thickness = 3;
        const QSize size =
            orientation() == Qt::Horizontal ? QSize(thickness, length) : QSize(length, thickness);
        QRect grip(QPoint(), size.boundedTo(this->size()));
        grip.moveCenter(rect().center());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().windowText());
        painter.setOpacity(underMouse() ? 0.7 : 0.45);
        painter.drawRoundedRect(grip, thickness / 2.0, thickness / 2.0);
    }
};

class BoundaryAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit BoundaryAccessible(Boundary *boundary)
        : QAccessibleWidget(boundary, QAccessible::Separator)
        , m_boundary(*boundary)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return m_boundary.place(); }
    void setCurrentValue(const QVariant &value) override { m_boundary.moveTo(value.toInt()); }
    QVariant minimumValue() const override { return m_boundary.range().first; }
    QVariant maximumValue() const override { return m_boundary.range().second; }
    QVariant minimumStepSize() const override { return 1; }

private:
    Boundary &m_boundary;
};

QAccessibleInterface *boundaryAccessible(const QString &, QObject *object)
{
    auto *boundary = dynamic_cast<Boundary *>(object);
    return boundary ? new BoundaryAccessible(boundary) : nullptr;
}

} // namespace

Split::Split()
{
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(boundaryAccessible);
        return true;
    }();
    setChildrenCollapsible(false);
}

void Split::nameBoundary(int pane, const QString &name)
{
    handle(pane)->setAccessibleName(name);
}

QSplitterHandle *Split::createHandle()
{
    return new Boundary(this);
}
