#include "view/Announcement.h"

#include <QAccessible>
#include <QWidget>

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace {

// What Qt says from 6.8 on, said on the connection that it made for its own events.
void send(const QString &what, QWidget *widget)
{
    const QAccessible::Id id = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget));
    QDBusMessage event = QDBusMessage::createSignal(QStringLiteral("/org/a11y/atspi/accessible/%1").arg(id),
                                                    QStringLiteral("org.a11y.atspi.Event.Object"),
                                                    QStringLiteral("Announcement"));
    constexpr int polite = 1;
    event << QString() << polite << 0 << QVariant::fromValue(QDBusVariant(what)) << QVariantMap();
    QDBusConnection(QStringLiteral("a11y")).send(event);
}

} // namespace

#else

namespace {

void send(const QString &what, QWidget *widget)
{
    QAccessibleAnnouncementEvent event(widget, what);
    QAccessible::updateAccessibility(&event);
}

} // namespace

#endif

void announce(const QString &what, QWidget *widget)
{
    if (QAccessible::isActive())
        send(what, widget);
}
