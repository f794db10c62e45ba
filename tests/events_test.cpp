#include "Testing.h"
#include "play/EventToolbar.h"
#include "play/Events.h"
#include "view/Alert.h"
#include "view/Unwinding.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

class EventsTest : public QObject {
    Q_OBJECT

    // A window with an alert, and the lines that it prints.
    struct Alerting {
        State<bool> showAlert{false};
        State<QString> alertMessage;
        QStringList printed;
        QWidget window;

        Alerting()
        {
            alertWhen(showAlert, alertMessage,
                      {.ok = [this] { printed += u"OK"_s; }, .cancel = [this] { printed += u"Cancel"_s; }},
                      new QWidget(&window));
            window.show();
        }
        QMessageBox *alert() const
        {
            const auto alerts = window.findChildren<QMessageBox *>();
            return alerts.value(alerts.size() - 1);
        }
        QMessageBox *raised(const QString &message)
        {
            alertMessage = message;
            showAlert = true;
            return alert();
        }
        QStringList afterClosing()
        {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return alert() || showAlert ? QStringList{u"still shown"_s} : printed;
        }
    };

private slots:
    void theButtonsStandAtBothEndsOfTheToolbar()
    {
        QWidget window;
        QStringList pressed;
        QToolBar *bar = EventToolbar([&](const Event &event) { pressed += event.label; });
        (new QVBoxLayout(&window))->setContentsMargins({});
        window.layout()->addWidget(bar);
        window.resize(900, 200);
        window.show();
        QList<QToolButton *> buttons;
        for (QAction *action : bar->actions()) {
            if (auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(action));
                button && !action->text().isEmpty()) {
                buttons += button;
                QVERIFY(button->isVisible() && button->focusPolicy() & Qt::TabFocus);
                QTest::keyClick(button, Qt::Key_Space);
                QCOMPARE(pressed.value(buttons.size() - 1), action->text());
            }
        }
        QCOMPARE(pressed,
                 QStringList({u"🐱Cat"_s, u"🐦Bird"_s, u"居場所"_s, u"手荷物"_s, u"暗黙知"_s, u"寄付"_s}));
        QVERIFY(buttons.first()->x() < 30);
        QVERIFY(buttons.last()->geometry().right() > 870);
        QVERIFY(buttons[1]->x() > 450);
        QVERIFY(buttons[5]->x() - buttons[1]->geometry().right() < 300);

        window.resize(150, 200); // too narrow for all
        QCoreApplication::processEvents();
        auto *more = bar->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s);
        QVERIFY(more && more->isVisible() && !buttons.last()->isVisible());
        QVERIFY(more->focusPolicy() & Qt::TabFocus);
        for (const bool widens : {true, false}) {
            QTimer::singleShot(0, bar, [&] {
                QVERIFY(more->menu()->isVisible());
                if (widens)
                    window.resize(160, 200);
                else
                    titled(u"寄付"_s, more->menu()->actions())->trigger();
                QVERIFY(!widens || !more->menu()->isVisible());
                more->menu()->close();
            });
            more->showMenu();
        }
        QCOMPARE(pressed.size(), 7);
        window.resize(900, 200);
        QCoreApplication::processEvents();
        QVERIFY(!more->isVisible() && buttons.last()->isVisible());
    }

    void theButtonsKeepTheirOrderOnEveryDesktop()
    {
        for (const int desktop : {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                                  QDialogButtonBox::KdeLayout, QDialogButtonBox::GnomeLayout}) {
            Alerting scene;
            QMessageBox *alert = scene.raised(u"順序"_s);
            alert->findChild<QDialogButtonBox *>()->setStyleSheet(u"button-layout: %1"_s.arg(desktop));
            QCoreApplication::processEvents();
            const auto buttons = alert->buttons();
            QVERIFY2(buttons[0]->x() < buttons[1]->x(), QByteArray::number(desktop));
        }
    }

    void eachWayOutPressesOneButtonOnce_data()
    {
        using Way = std::function<void(Alerting &)>;
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        cases<Way, QString>({
            {"a click on OK", [](Alerting &scene) { scene.alert()->buttons()[0]->click(); }, u"OK"_s},
            {"a click on キャンセル", [](Alerting &scene) { scene.alert()->buttons()[1]->click(); },
             u"Cancel"_s},
            {"Return", [=](Alerting &) { press(Qt::Key_Return); }, u"OK"_s},
            {"Escape", [=](Alerting &) { press(Qt::Key_Escape); }, u"Cancel"_s},
            {"the close button", [](Alerting &scene) { scene.alert()->close(); }, u"Cancel"_s},
            {"the state that it shows", [](Alerting &scene) { scene.showAlert = false; }, {}},
            {"the end of its window", [](Alerting &scene) { cancelDialogs(&scene.window); }, {}},
            {"the end of the application",
             [](Alerting &) {
                 QTimer::singleShot(0, qApp, &QCoreApplication::quit);
                 QCoreApplication::exec();
             },
             {}},
        });
    }
    void eachWayOutPressesOneButtonOnce()
    {
        const auto [goOut, printed] = values<std::function<void(Alerting &)>, QString>();
        Alerting scene;
        for (int time = 1; time <= 2; ++time) {
            scene.window.show();
            QMessageBox *alert = scene.raised(u"また"_s);
            QVERIFY(QTest::qWaitForWindowActive(alert));
            const auto heard = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(alert));
            goOut(scene);
            QCOMPARE(scene.afterClosing(), printed.isEmpty() ? QStringList() : QStringList(time, printed));
            QCOMPARE(scene.alertMessage.value(), u"また"_s);
            QVERIFY(!QAccessible::accessibleInterface(heard)); // of what isn't there any more
        }
    }
};

QTEST_MAIN(EventsTest)
#include "events_test.moc"
