#include "main_window/Split.h"

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

    void paintEvent(QPaintEvent *event) override
    {
        QSplitterHandle::paintEvent(event);
        if (hasFocus())
            QPainter(this).fillRect(rect(), palette().highlight());
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
