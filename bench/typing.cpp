// What a key press in the reading pane costs, from the event to the painted line: in an empty text,
// and at three places of 10 MB in short lines and in eight long ones, beside a bare plain text edit that
// holds the same.
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

    // What so many of the presses cost at most.
    double quantile(double share)
    {
        std::sort(m_costs.begin(), m_costs.end());
        return m_costs[size_t(share * double(m_costs.size() - 1))];
    }

private:
    QPlainTextEdit &m_edit;
    std::vector<double> m_costs; // milliseconds
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
    std::printf("%-24s median %6.2f ms  95%% below %6.2f ms  bare edit %7.2f ms\n", name,
                ours.quantile(0.5), ours.quantile(0.95), floor.quantile(0.5));
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
