// Looking for something in a large text: when the first hit behind the caret is there, when all are
// counted, and the longest that the user-interface thread was busy meanwhile.
//
//   find_text [MEGABYTES=100]

#include "document/ReadingText.h"
#include "document/TextSearch.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

const QString sentence = QStringLiteral("今日は天気がよいので、机を窓の近くへ動かして本を読む。");

QString textOf(qsizetype megabytes, qsizetype sentencesInALine)
{
    const QString line = sentence.repeated(sentencesInALine) + u'\n';
    return line.repeated((megabytes << 20) / line.toUtf8().size());
}

void enter(ReadingText &content, const QString &text)
{
    content.setValue(text);
    while (!content.isComplete())
        QCoreApplication::processEvents();
}

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

void find(const char *name, const QString &text, const QString &wanted)
{
    ReadingText content;
    enter(content, text);
    TextSearch search(content);
    QElapsedTimer timer;
    timer.start();
    double first = 0, busy = 0;
    search.start(TextPattern(wanted, false), int(text.size() / 2));
    const double begun = milliseconds(timer);
    while (!search.isDone()) {
        QElapsedTimer turn;
        turn.start();
        QCoreApplication::processEvents();
        busy = std::max(busy, milliseconds(turn));
        if (first == 0 && search.count() > 0)
            first = milliseconds(timer);
    }
    std::printf("%-28s first hit %6.1f ms  all %8.1f ms  longest block %5.1f ms  (%d hits)\n", name, first,
                milliseconds(timer), std::max(begun, busy), search.count());
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int megabytes = argc > 1 ? std::max(1, std::atoi(argv[1])) : 100;
    const QString lines = textOf(megabytes, 1), longer = textOf(megabytes, 4000);
    find("short lines, often", lines, QStringLiteral("ヨイノデ"));
    find("short lines, nowhere", lines, QStringLiteral("ナイモノ"));
    find("long lines, often", longer, QStringLiteral("ヨイノデ"));
    find("long lines, nowhere", longer, QStringLiteral("ナイモノ"));
    return 0;
}
