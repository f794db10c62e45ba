// What a key press in the reading pane costs, from the event to the painted line, and what a double click:
// in an empty text, and at three places of 10 MB in short lines and in eight long ones, beside a bare plain
// text edit that holds the same.
//
//   typing [KEYS=200]

#include "document/ReadingText.h"
#include "reading/FontSize.h"
#include "reading/TextPane.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

const QString sentence = QStringLiteral("今日は天気がよいので、机を窓の近くへ動かして本を読む。");

QString shortLines(qsizetype bytes)
{
    return (sentence + u'\n').repeated(bytes / (sentence.toUtf8().size() + 1));
}

QString longLines(qsizetype bytes)
{
    return (sentence.repeated(bytes / sentence.toUtf8().size() / 8) + u'\n').repeated(8);
}

class Typist {
public:
    explicit Typist(QPlainTextEdit &edit)
        : m_edit(edit)
    {
        m_edit.resize(650, 300);
        m_edit.show();
        QCoreApplication::processEvents();
    }

    void press()
    {
        QKeyEvent down(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::sendEvent(&m_edit, &down);
        QCoreApplication::processEvents();
        m_costs.push_back(double(timer.nsecsElapsed()) / 1e6);
    }

    // A little further on each time.
    void doubleClick()
    {
        m_place = (m_place + 37) % 600;
        const QPointF place(m_place, m_edit.viewport()->height() / 2);
        QElapsedTimer timer;
        timer.start();
        for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            QMouseEvent click(type, place, place, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(m_edit.viewport(), &click);
        }
        QCoreApplication::processEvents();
        m_clicks.push_back(double(timer.nsecsElapsed()) / 1e6);
    }

    // What so many of the presses, or of the clicks, cost at most.
    double quantile(double share) { return quantileOf(m_costs, share); }
    double quantileOfClicks(double share) { return quantileOf(m_clicks, share); }

private:
    static double quantileOf(std::vector<double> &costs, double share)
    {
        std::sort(costs.begin(), costs.end());
        return costs[size_t(share * double(costs.size() - 1))];
    }

    QPlainTextEdit &m_edit;
    int m_place = 0;
    std::vector<double> m_costs, m_clicks; // milliseconds
};

// A fraction of the way through the text.
void putCaret(QPlainTextEdit &edit, double where)
{
    QTextCursor cursor(edit.document());
    cursor.setPosition(int(where * (edit.document()->characterCount() - 1)));
    edit.setTextCursor(cursor);
}

void compare(const char *name, const QString &text, double where, int keys, int bareKeys)
{
    ReadingText content;
    const State<double> size{FontSize::initial};
    TextPane pane(content, size);
    bool complete = false;
    QObject::connect(&content, &ReadingText::complete, &pane, [&complete] { complete = true; });
    content.setValue(text);
    while (!complete)
        QCoreApplication::processEvents();

    QPlainTextEdit bare;
    bare.setFont(pane.font());
    bare.setPlainText(text);

    Typist ours(pane), floor(bare);
    putCaret(pane, where);
    putCaret(bare, where);
    QCoreApplication::processEvents();
    for (int i = 0; i < keys; ++i) {
        ours.press();
        if (i < bareKeys)
            floor.press();
    }
    for (int i = 0; i < keys; ++i)
        ours.doubleClick();
    std::printf("%-24s median %6.2f ms  95%% below %6.2f ms  bare edit %7.2f ms  double click %6.2f ms\n",
                name, ours.quantile(0.5), ours.quantile(0.95), floor.quantile(0.5),
                ours.quantileOfClicks(0.5));
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int keys = argc > 1 ? std::max(1, std::atoi(argv[1])) : 200;
    compare("empty text", {}, 0, keys, keys);
    compare("one screenful", shortLines(2000), 0, keys, keys);
    const QString lines = shortLines(10 << 20), longer = longLines(10 << 20);
    for (const double where : {0.0, 0.5, 1.0}) {
        const auto name = QStringLiteral("10 MB, %1 % through").arg(where * 100).toUtf8();
        compare(name.constData(), lines, where, keys, keys);
        compare((name + ", long").constData(), longer, where, keys, 5);
    }
    return 0;
}
