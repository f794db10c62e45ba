#include "reading/SizeGestures.h"

#include "reading/FontSize.h"
#include "view/Modifiers.h"

#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>

namespace {

class SizeGestures : public QObject {
public:
    SizeGestures(QWidget *viewport, State<double> &fontSize)
        : QObject(viewport)
        , m_fontSize(fontSize)
    {
        viewport->installEventFilter(this);
        // What recognises gestures is made with the first that is asked for.
        const auto grab = [viewport] { viewport->grabGesture(Qt::PinchGesture); };
        onAppear([grab, viewport] { afterFirstPaint(grab, viewport); }, viewport);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::Wheel:
            return turn(*static_cast<QWheelEvent *>(event));
        case QEvent::NativeGesture:
            return pinch(*static_cast<QNativeGestureEvent *>(event));
        case QEvent::Gesture:
            return pinch(*static_cast<QGestureEvent *>(event));
        default:
            return false;
        }
    }

private:
    // Fine wheels turn by parts of a notch.
    bool turn(const QWheelEvent &event)
    {
        if (!(event.modifiers() & Qt::ControlModifier))
            return false;
        constexpr double notch = 120;
        grow(event.angleDelta().y() / notch);
        return true;
    }

    // On a touch pad.
    bool pinch(const QNativeGestureEvent &event)
    {
        if (event.gestureType() != Qt::ZoomNativeGesture)
            return false;
        grow(event.value() * m_fontSize);
        return true;
    }

    // On a screen.
    bool pinch(QGestureEvent &event)
    {
        const auto *fingers = static_cast<QPinchGesture *>(event.gesture(Qt::PinchGesture));
        if (!fingers)
            return false;
        grow((fingers->scaleFactor() / fingers->lastScaleFactor() - 1) * m_fontSize);
        event.accept();
        return true;
    }

    // What is less than a step counts with what follows.
    void grow(double points)
    {
        m_rest += points;
        const double steps = std::trunc(m_rest / FontSize::step) * FontSize::step;
        m_rest -= steps;
        if (steps != 0)
            m_fontSize = FontSize::allowed(m_fontSize + steps);
    }

    State<double> &m_fontSize;
    double m_rest = 0;
};

} // namespace

void stepSizeOver(QWidget *viewport, State<double> &fontSize)
{
    new SizeGestures(viewport, fontSize);
}
