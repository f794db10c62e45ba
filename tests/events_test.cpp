#include "play/Alert.h"
#include "play/EventToolbar.h"
#include "play/Events.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"

#include <QDialogButtonBox>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

class EventsTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    int m_stores = 0;

    QString newStore() { return m_folder.filePath(u"%1.conf"_s.arg(++m_stores)); }

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
            return alerts.isEmpty() ? nullptr : alerts.last();
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
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<qint64>("stage");
        QTest::addColumn<QString>("message");
        const auto row = [](int index, const char *label, const char *stored, qint64 stage,
                            const char *message) {
            QTest::newRow(label) << index << QString::fromUtf8(label) << QString::fromUtf8(stored) << stage
                                 << QString::fromUtf8(message);
        };
        row(0, "🐱Cat", "CatPX5=3", 3, "🐱Cat に餌をやりました");
        row(1, "🐦Bird", "BirdPX5=3", 3, "🐦Bird に餌をやりました");
        row(2, "居場所", "CarPX5=🚙", -1, "居場所に戻りました");
        row(3, "手荷物", "BagPX5=🛍", -1, "🐱🐦手荷物を確認しました");
        row(4, "暗黙知", "FirmPX5=種子", -1, "🐱🐦暗黙知というタネを撒いて収穫物を確認しました");
        row(5, "寄付", "FirmPX5=種子", -1, "🐱🐦寄付という税のような物を収穫物の中から支払いました");
    }
    void eachButtonRecordsItsEvent()
    {
        QFETCH(int, index);
        QFETCH(QString, stored);
        const QString file = newStore();
        UserDefaults store(file);
        State<qint64> stage{-1};
        State<QString> message;
        State<bool> shown{false};
        const Event &event = events().at(size_t(index));
        QTEST(event.label, "label");
        for (int time = 0; time < 2; ++time) { // a second time changes nothing
            perform(event, store, stage, message, shown);
            QTEST(stage.value(), "stage");
            QTEST(message.value(), "message");
            QVERIFY(shown);
            QFile written(file);
            QVERIFY(written.open(QFile::ReadOnly));
            QCOMPARE(QString::fromUtf8(written.readAll()), u"[General]\n"_s + stored + u'\n');
        }
    }

    void theButtonsStandAtBothEndsOfTheToolbar()
    {
        QMainWindow window;
        QStringList pressed;
        QToolBar *bar = EventToolbar([&](const Event &event) { pressed += event.label; });
        window.addToolBar(bar);
        window.resize(900, 200);
        window.show();
        QStringList labels;
        QList<QToolButton *> buttons;
        for (QAction *action : bar->actions()) {
            if (auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(action));
                button && !action->text().isEmpty()) {
                labels += action->text();
                buttons += button;
                QVERIFY(button->isVisible() && button->focusPolicy() & Qt::TabFocus);
                QTest::keyClick(button, Qt::Key_Space);
            }
        }
        QCOMPARE(labels,
                 QStringList({u"🐱Cat"_s, u"🐦Bird"_s, u"居場所"_s, u"手荷物"_s, u"暗黙知"_s, u"寄付"_s}));
        QCOMPARE(pressed, labels);
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
        more->click();
        QTRY_VERIFY(buttons.last()->isVisible());
    }

    void theButtonsKeepTheirOrderOnEveryDesktop()
    {
        for (const int desktop : {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                                  QDialogButtonBox::KdeLayout, QDialogButtonBox::GnomeLayout}) {
            Alerting scene;
            QMessageBox *alert = scene.raised(u"順序"_s);
            alert->findChild<QDialogButtonBox *>()->setStyleSheet(u"button-layout: %1"_s.arg(desktop));
            QTest::qWait(1);
            const auto buttons = alert->buttons();
            QVERIFY2(buttons[0]->x() < buttons[1]->x(), QByteArray::number(desktop));
        }
    }

    void eachWayOutPressesOneButtonOnce_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<QString>("printed");
        QTest::newRow("a click on OK") << 0 << u"OK"_s;
        QTest::newRow("a click on キャンセル") << 1 << u"Cancel"_s;
        QTest::newRow("Return") << 2 << u"OK"_s;
        QTest::newRow("Escape") << 3 << u"Cancel"_s;
        QTest::newRow("the close button") << 4 << u"Cancel"_s;
        QTest::newRow("the state that it shows") << 5 << QString();
    }
    void eachWayOutPressesOneButtonOnce()
    {
        QFETCH(int, way);
        QFETCH(QString, printed);
        Alerting scene;
        for (int time = 1; time <= 2; ++time) {
            QMessageBox *alert = scene.raised(u"また"_s);
            QVERIFY(QTest::qWaitForWindowActive(alert));
            switch (way) {
            case 0:
                alert->buttons()[0]->click();
                break;
            case 1:
                alert->buttons()[1]->click();
                break;
            case 2:
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                break;
            case 3:
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
                break;
            case 4:
                alert->close();
                break;
            case 5:
                scene.showAlert = false;
                break;
            }
            QStringList expected;
            if (!printed.isEmpty())
                expected = QStringList(time, printed);
            QCOMPARE(scene.afterClosing(), expected);
            QCOMPARE(scene.alertMessage.value(), u"また"_s);
        }
    }
};

QTEST_MAIN(EventsTest)
#include "events_test.moc"
