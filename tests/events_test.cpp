#include "Testing.h"
#include "play/EventToolbar.h"
#include "play/Events.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"
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

    QTemporaryDir m_folder;

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
    void eachButtonRecordsItsEvent_data()
    {
        cases<size_t, QString, QByteArray, qint64, QString>({
            {"cat", 0, u"🐱Cat"_s, "CatPX5=3", 3, u"🐱Cat に餌をやりました"_s},
            {"bird", 1, u"🐦Bird"_s, "BirdPX5=3", 3, u"🐦Bird に餌をやりました"_s},
            {"place", 2, u"居場所"_s, "CarPX5=🚙", -1, u"居場所に戻りました"_s},
            {"bag", 3, u"手荷物"_s, "BagPX5=🛍", -1, u"🐱🐦手荷物を確認しました"_s},
            {"seed", 4, u"暗黙知"_s, "FirmPX5=種子", -1,
             u"🐱🐦暗黙知というタネを撒いて収穫物を確認しました"_s},
            {"gift", 5, u"寄付"_s, "FirmPX5=種子", -1,
             u"🐱🐦寄付という税のような物を収穫物の中から支払いました"_s},
        });
    }
    void eachButtonRecordsItsEvent()
    {
        const auto [index, label, stored, nextStage, said] =
            values<size_t, QString, QByteArray, qint64, QString>();
        const QString file = m_folder.filePath(label);
        UserDefaults store(file);
        State<qint64> stage{-1};
        State<QString> message;
        State<bool> shown{false};
        const Event &event = events().at(index);
        QCOMPARE(event.label, label);
        for (int time = 0; time < 2; ++time) { // a second time changes nothing
            perform(event, store, stage, message, shown);
            QCOMPARE(stage.value(), nextStage);
            QCOMPARE(message.value(), said);
            QVERIFY(shown);
            QCOMPARE(contentOf(file), "[General]\n" + stored + '\n');
        }
    }

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
        QVERIFY(!more->accessibleName().isEmpty());
        QCOMPARE(QAccessible::queryAccessibleInterface(more)->role(), QAccessible::ButtonMenu);
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
