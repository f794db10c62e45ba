#include "Testing.h"
#include "play/Journey.h"
#include "play/JourneyBoard.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Journey;

namespace {

Board sailingAt(double offset)
{
    return {.offset = offset};
}

// From an anchor on, the boat is one that returns.
Board anchored(double offset, QStringView label)
{
    return {.offset = offset, .movingRight = false, .movingStr = label.toString()};
}

Board returningFrom(double offset)
{
    return anchored(offset, sailing);
}

} // namespace

char *toString(const Board &board)
{
    return QTest::toString(u"%1 %2 %3 stage %4"_s.arg(board.offset)
                               .arg(board.movingRight ? u"right"_s : u"left"_s)
                               .arg(board.movingStr)
                               .arg(board.btnStatus));
}

class JourneyBoardTest : public QObject {
    Q_OBJECT

    // A board in a window of its own, below something else that can have the keyboard focus.
    struct Shown {
        State<double> offset{0};
        State<bool> movingRight{true};
        State<QString> movingStr{sailing.toString()};
        State<qint64> btnStatus{0};
        QWidget window;
        QLineEdit *other = new QLineEdit;
        JourneyBoard *board = new JourneyBoard({offset, movingRight, movingStr, btnStatus});

        explicit Shown(int boardWidth = 500)
        {
            auto *layout = new QVBoxLayout(&window);
            layout->addWidget(other);
            layout->addWidget(board);
            const int margins = layout->contentsMargins().left() + layout->contentsMargins().right();
            window.resize(boardWidth + margins, 300);
            window.show();
        }
        QList<QPushButton *> buttons() const
        {
            QList<QPushButton *> visible = window.findChildren<QPushButton *>();
            visible.removeIf([](const QPushButton *button) { return !button->isVisible(); });
            return visible;
        }
        QPushButton *button(const QString &title) const { return titled(title, buttons()); }
        QPushButton *boat() const { return button(movingStr); }
        // How far a button is from the middle of the board.
        double fromMiddle(const QPushButton *shownButton) const
        {
            return shownButton->geometry().center().x() - board->geometry().center().x();
        }
        void press(int times) const
        {
            for (int i = 0; i < times; ++i)
                boat()->click();
        }
    };

private slots:
    void theLabelsAreByteForByte()
    {
        QCOMPARE(sailing.toUtf8().toHex(), QByteArray("e888b9f09f9ba5"));
        QCOMPARE(anchoredRight.toUtf8().toHex(), QByteArray("e888b9f09f9ba5e29a93efb88f"));
        QCOMPARE(anchoredLeft.toUtf8().toHex(), QByteArray("e888b9e29a93efb88ff09f9ba5"));
    }

    void aPressMovesTheBoat_data()
    {
        const Board right = anchored(400, anchoredRight), left = anchored(0, anchoredLeft);
        cases<Board, double, Board>({
            {"a step to the right", sailingAt(0), 500, sailingAt(50)},
            {"the last step before the limit", sailingAt(300), 500, sailingAt(350)},
            {"a step onto the limit anchors", sailingAt(350), 500, right},
            {"a step past the limit snaps back to it", sailingAt(350), 480, anchored(380, anchoredRight)},
            {"a fractional limit is kept", sailingAt(350), 480.25, anchored(380.25, anchoredRight)},
            {"half a point short of the limit sails on", sailingAt(350), 500.5, sailingAt(400)},
            {"a window made narrower anchors far back", sailingAt(350), 200, anchored(100, anchoredRight)},
            {"a region of 150 anchors at once", sailingAt(0), 150, anchored(50, anchoredRight)},
            {"a region as wide as the boat", sailingAt(0), 100, anchored(0, anchoredRight)},
            {"no region at all", sailingAt(0), 0, anchored(-100, anchoredRight)},
            {"from the right anchor a step to the left", right, 500, returningFrom(350)},
            {"the left limit doesn't depend on the width", right, 90, returningFrom(350)},
            {"a step onto the left limit anchors", returningFrom(50), 500, left},
            {"a step past it snaps back to it", returningFrom(30), 500, left},
            {"from a negative right anchor to the left one", anchored(-100, anchoredRight), 0, left},
            {"at the left anchor it stays", left, 500, left},
        });
    }
    void aPressMovesTheBoat()
    {
        auto [before, width, after] = values<Board, double, Board>();
        for (const qint64 stage : {0, -4}) { // the stage is none of the boat's business
            before.btnStatus = after.btnStatus = stage;
            QCOMPARE(boatPressed(before, width), after);
        }
    }

    void destinationsLeadOn()
    {
        const qint64 stages[]{0, -1, 1, 2, -2, -3, -4}; // behind each of them in turn
        QCOMPARE(std::size(stages), destinations.size());
        for (size_t i = 0; i < destinations.size(); ++i) {
            const bool sendsOff = i >= 5; // the park and the station
            for (const Board &before :
                 {anchored(400, anchoredRight), anchored(0, anchoredLeft), sailingAt(150)}) {
                Board expected = sendsOff ? sailingAt(0) : before;
                expected.btnStatus = stages[i];
                QCOMPARE(arrived(destinations[i], before), expected);
            }
        }
    }

    void eachStageShowsItsButtons_data()
    {
        const QString sail = sailing.toString(), right = anchoredRight.toString();
        const QStringList ashore{u"下船"_s, u"冨士山公園"_s, u"駅"_s};
        cases<qint64, QString, QStringList>({
            {"4: nothing", 4, sail, {}},
            {"3: the own place", 3, sail, {u"居場所"_s}},
            {"2: the shop", 2, sail, {u"お店"_s}},
            {"1: what to buy", 1, sail, {u"食品購入"_s, u"衣類購入"_s}},
            {"0: the boat", 0, sail, {sail}},
            {"-4: the boat", -4, sail, {sail}},
            {"anchored: boat and anchor buttons", -1, right, QStringList{right} + ashore},
            {"anchored but ashore: the anchor buttons stay", 3, right, ashore + QStringList{u"居場所"_s}},
            {"another label is no anchor", 5, u"船🛥⚓"_s, {}},
        });
    }
    void eachStageShowsItsButtons()
    {
        const auto [stage, label, buttons] = values<qint64, QString, QStringList>();
        Shown shown;
        shown.btnStatus = stage;
        shown.movingStr = label;
        QStringList titles;
        for (const QPushButton *button : shown.buttons())
            titles += button->text();
        QCOMPARE(titles, buttons);
    }

    void whereTheBoatIsIsHeard()
    {
        Shown shown;
        QAccessible::setActive(true);
        for (const QString &side : {u"右岸"_s, u"左岸"_s}) {
            shown.movingStr = (side == u"右岸"_s ? anchoredRight : anchoredLeft).toString();
            QCOMPARE(shown.boat()->accessibleDescription(), side + u"に停泊中"_s);
        }
    }

    void theAnchorButtonsAreShiftedFromTheirOwnPlaces()
    {
        Shown shown(500);
        QCOMPARE(shown.board->width(), 500);
        QCOMPARE(shown.boat()->size(), QSize(100, 40));
        const int height = shown.boat()->y();
        shown.press(8);
        QCOMPARE(shown.fromMiddle(shown.boat()), 400.0);
        QCOMPARE(shown.boat()->y(), height);
        const QStringList titles{u"下船"_s, u"冨士山公園"_s, u"駅"_s};
        QList<QPoint> atRight;
        for (const QString &title : titles)
            atRight += shown.button(title)->pos();
        shown.press(9);
        QCOMPARE(shown.movingStr.value(), anchoredLeft.toString());
        for (int i = 0; i < 3; ++i) {
            const QPushButton *button = shown.button(titles[i]);
            QCOMPARE(atRight[i] - button->pos(), QPoint(400, 0));
            QCOMPARE(button->geometry().bottom(), shown.board->geometry().bottom());
        }
        // Side by side and centred, but for their own displacements of 0, -150 and -300.
        const QRect first = shown.button(titles[0])->geometry();
        const QRect second = shown.button(titles[1])->geometry().translated(150, 0);
        const QRect third = shown.button(titles[2])->geometry().translated(300, 0);
        QVERIFY(first.right() < second.left());
        QCOMPARE(second.left() - first.right(), third.left() - second.right());
        QVERIFY(third.translated(-300, 0).right() < second.translated(-150, 0).left()); // nor displaced
        QVERIFY(second.translated(-150, 0).right() < first.left());
        QVERIFY(qAbs((first.left() + third.right()) / 2 - shown.board->geometry().center().x()) <= 1);
    }

    void displacedButtonsTakeClicksAbovePanesAndKeepTheFocusOutside()
    {
        Shown shown(500);
        shown.press(17); // to the left anchor
        QPushButton *station = shown.button(u"駅"_s);
        QVERIFY(station->x() < shown.board->x() + 100);
        QCOMPARE(shown.window.childAt(shown.boat()->geometry().center()), shown.boat());
        station->click();
        QCOMPARE(shown.btnStatus.value(), -4);

        QVERIFY(QTest::qWaitForWindowActive(&shown.window));
        shown.boat()->setFocus();
        for (int i = 0; i < 17; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QCOMPARE(shown.movingStr.value(), anchoredLeft.toString());
        QVERIFY(shown.boat()->hasFocus());
    }
};

QTEST_MAIN(JourneyBoardTest)
#include "journey_board_test.moc"
