#include "Testing.h"
#include "view/Controls.h"
#include "view/Modifiers.h"
#include "view/Stacks.h"
#include "view/State.h"

#include <QLabel>
#include <QSlider>

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

    void aSliderTakesWholeStepsWithinItsRange()
    {
        State<double> size{14};
        const Widget row(Slider(u"Font Size"_s, size, {.from = 10, .to = 40, .step = 1}));
        auto *slider = row->findChild<QSlider *>();
        QCOMPARE(slider->value(), 14);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(size.value(), 15.0);
        QTest::keyClick(slider, Qt::Key_End);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(size.value(), 40.0);
        QTest::keyClick(slider, Qt::Key_Home);
        QTest::keyClick(slider, Qt::Key_Left);
        QCOMPARE(size.value(), 10.0);
        size = 33;
        QCOMPARE(slider->value(), 33);

        auto *title = row->findChild<QLabel *>();
        QCOMPARE(title->text(), u"Font Size"_s);
        QCOMPARE(title->buddy(), slider);
        QCOMPARE(slider->accessibleName(), u"Font Size"_s);
    }

    void whatIsHiddenTakesNoRoom()
    {
        State<bool> shown{false};
        QWidget *first = Text(u"一"_s);
        QWidget *second = visibleWhen([&] { return shown.value(); }, Text(u"二"_s));
        const Widget stack(VStack({first, second}));
        stack->show();
        const int alone = stack->sizeHint().height();
        shown = true;
        QVERIFY(second->isVisible());
        QVERIFY(stack->sizeHint().height() > alone);
        shown = false;
        QCOMPARE(stack->sizeHint().height(), alone);
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
