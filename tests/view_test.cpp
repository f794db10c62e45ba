#include "Testing.h"
#include "view/Controls.h"
#include "view/Modifiers.h"
#include "view/Stacks.h"
#include "view/State.h"

using Widget = std::unique_ptr<QWidget>;

class ViewTest : public QObject {
    Q_OBJECT

private slots:
    void aWidgetThatIsGoneFollowsNothing()
    {
        State<int> state{0};
        int shown = 0;
        auto *widget = new QWidget;
        follow(
            widget, [&] { return state.value(); }, [&](int) { ++shown; });
        QCOMPARE(shown, 1);
        state = 1;
        state = 1; // equal: nobody is told
        QCOMPARE(shown, 2);
        delete widget;
        state = 2;
        QCOMPARE(shown, 2);
    }

    void appearingIsComingOnScreenAnew()
    {
        int appeared = 0;
        QWidget *text = onAppear([&] { ++appeared; }, Text(u"一"_s));
        const Widget window(VStack({text}));
        QCOMPARE(appeared, 0);
        window->show();
        QCOMPARE(appeared, 1);
        window->showMinimized();
        QCoreApplication::processEvents();
        window->showNormal();
        QCoreApplication::processEvents();
        QCOMPARE(appeared, 1);
        window->hide();
        window->show();
        QCOMPARE(appeared, 2);
    }
};

QTEST_MAIN(ViewTest)
#include "view_test.moc"
