// What a press of the boat costs, as a ratio to setting one label and moving one bare button by hand:
// instructions for each of 100,000 presses on an offscreen window.
//
//   board [PRESSES=100000]
//
// Counted by valgrind, which gives the same figure on every machine; each side runs twice, with few and
// with many presses, so that starting up and building the window drop out.

#include "play/JourneyBoard.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <cstdio>
#include <cstdlib>

using namespace Journey;

namespace {

// The signal alone: how a button shows that it is pressed, and what is painted then, is the same for
// both sides and costs many times what is compared here.
void run(QPushButton &button, int presses)
{
    for (int i = 0; i < presses; ++i)
        emit button.clicked();
}

void pressBoat(int presses)
{
    State<double> offset{0};
    State<bool> movingRight{true};
    State<QString> movingStr{sailing.toString()};
    State<qint64> btnStatus{0};
    QWidget window;
    QVBoxLayout layout(&window);
    layout.addWidget(new JourneyBoard({offset, movingRight, movingStr, btnStatus}));
    window.resize(700, 200);
    window.show();
    // A boat at rest at the left is sent off again, so that all presses are those of a voyage.
    follow(
        &window, [&] { return movingStr.value() == anchoredLeft; },
        [&](bool atRest) {
            if (atRest)
                movingRight = true;
        });
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->isVisible())
            return run(*button, presses);
    }
}

void pressByHand(int presses)
{
    QWidget window;
    QPushButton button(&window);
    button.resize(100, 40);
    window.resize(700, 200);
    window.show();
    int step = 0;
    QObject::connect(&button, &QPushButton::clicked, &window, [&] {
        ++step;
        button.setText(step % 24 < 12 ? sailing.toString() : anchoredRight.toString());
        button.move(step % 12 * 50, 60);
    });
    run(button, presses);
}

qint64 instructions(const char *side, int presses)
{
    QProcess valgrind;
    valgrind.start(QStringLiteral("valgrind"),
                   {QStringLiteral("--tool=callgrind"), QStringLiteral("--callgrind-out-file=/dev/null"),
                    QCoreApplication::applicationFilePath(), QString::fromLatin1(side),
                    QString::number(presses)});
    valgrind.waitForFinished(-1);
    static const QRegularExpression total(QStringLiteral("Collected : (\\d+)"));
    const auto found = total.match(QString::fromLocal8Bit(valgrind.readAllStandardError()));
    if (!found.hasMatch()) {
        std::fprintf(stderr, "board: valgrind is needed to count instructions\n");
        std::exit(2);
    }
    return found.captured(1).toLongLong();
}

double perPress(const char *side, int presses)
{
    const int few = presses / 10;
    return double(instructions(side, presses) - instructions(side, few)) / (presses - few);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QString side = QString::fromLocal8Bit(argc > 2 ? argv[1] : "");
    if (side == QStringLiteral("boat"))
        return pressBoat(std::atoi(argv[2])), 0;
    if (side == QStringLiteral("hand"))
        return pressByHand(std::atoi(argv[2])), 0;

    const int presses = argc > 1 ? std::atoi(argv[1]) : 100'000;
    const double boat = perPress("boat", presses), hand = perPress("hand", presses);
    std::printf("%-28s %9.0f %9.0f instructions  ratio %.2f (bar 3.00)\n", "a press of the boat", boat,
                hand, boat / hand);
    return 0;
}
