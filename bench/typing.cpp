// What a key press in the reading pane costs, from the event to the painted line: in an empty text
// and in one of 10 MB, beside a bare plain text edit that holds the same.
//
//   typing [KEYS=200]

#include "reading/FontSize.h"
#include "reading/ReadingText.h"
#include "reading/TextPane.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

QString textOf(qsizetype bytes)
{
    const QString line = QStringLiteral("今日は天気がよいので、机を窓の近くへ動かして本を読む。\n");
    return line.repeated(bytes / line.toUtf8().size());
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
        m_costs.push_back(double(timer.nsecsElapsed()) / 1e3);
    }

    double median()
    {
        std::sort(m_costs.begin(), m_costs.end());
        return m_costs[m_costs.size() / 2];
    }

private:
    QPlainTextEdit &m_edit;
    std::vector<double> m_costs; // microseconds
};

void compare(const char *name, const QString &text, QTextCursor::MoveOperation where, int keys)
{
    ReadingText content;
    const State<double> size{FontSize::initial};
    TextPane pane(content, size);
    content = text;
    pane.moveCursor(where);

    QPlainTextEdit bare;
    bare.setFont(pane.font());
    bare.setPlainText(text);
    bare.moveCursor(where);

    Typist ours(pane), floor(bare);
    for (int i = 0; i < keys; ++i) {
        ours.press();
        floor.press();
    }
    const double a = ours.median(), b = floor.median();
    std::printf("%-24s %8.0f us  bare edit %8.0f us  ratio %.2f\n", name, a, b, a / b);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int keys = argc > 1 ? std::max(1, std::atoi(argv[1])) : 200;
    const QString large = textOf(10 << 20);
    compare("empty text", {}, QTextCursor::Start, keys);
    compare("one screenful", textOf(2000), QTextCursor::Start, keys);
    compare("10 MB, at its beginning", large, QTextCursor::Start, keys);
    compare("10 MB, at its end", large, QTextCursor::End, keys);
    return 0;
}
