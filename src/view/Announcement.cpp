#include "view/Announcement.h"

#include <QAccessible>
#include <QWidget>

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

namespace {

void say(const QString &what, QWidget *widget)
{
    QAccessibleAnnouncementEvent event(widget, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

#else

#include <QAccessibleWidget>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QTimer>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// Earlier, Qt has no such event. The screen readers of its time don't know it either, but they read a
// notification that appears. So there is one for a moment, of the size of a point, and both are told of on
// the connection that Qt made for its own events.

namespace {

class Notification : public QWidget {
public:
    Notification(const QString &what, QWidget *window)
        : QWidget(window)
    {
        setAccessibleName(what);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(1, 1);
        lower();
        show();
        QTimer::singleShot(5s, this, &QObject::deleteLater); // by then whoever was told has looked
    }
};

QAccessibleInterface *notificationAccessible(const QString &, QObject *object)
{
    auto *notification = dynamic_cast<Notification *>(object);
    return notification ? new QAccessibleWidget(notification, QAccessible::Notification) : nullptr;
}

void send(const QString &name, QWidget *source, const QString &detail, const QVariant &about)
{
    const QAccessible::Id id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(source));
    QDBusMessage event = QDBusMessage::createSignal(u"/org/a11y/atspi/accessible/%1"_s.arg(id),
                                                    u"org.a11y.atspi.Event.Object"_s, name);
    constexpr int isSo = 1;
    event << detail << isSo << 0 << QVariant::fromValue(QDBusVariant(about)) << QVariantMap();
    QDBusConnection(u"a11y"_s).send(event);
}

void say(const QString &what, QWidget *widget)
{
    [[maybe_unused]] static const bool known = [] {
        QAccessible::installFactory(notificationAccessible);
        return true;
    }();
    send(u"Announcement"_s, widget, {}, what);
    send(u"StateChanged"_s, new Notification(what, widget->window()), u"showing"_s, 0);
}

} // namespace

#endif

void announce(const QString &what, QWidget *widget)
{
    if (QAccessible::isActive())
        say(what, widget);
}
