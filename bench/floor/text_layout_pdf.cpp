// text_layout_pdf IN.txt OUT.pdf: Qt's own way, a paragraph at a time: QTextLayout on a
// QPdfWriter.
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextLayout>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return 2;
    QFile in(QFile::decodeName(argv[1]));
    if (!in.open(QIODevice::ReadOnly))
        return 1;
    const QString text = QString::fromUtf8(in.readAll());
    QElapsedTimer clock;
    clock.start();
    QPdfWriter writer(QFile::decodeName(argv[2]));
    writer.setResolution(72);
    writer.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {20, 20, 20, 20}, QPageLayout::Point));
    QPainter painter(&writer);
    QFont font(QStringLiteral("Noto Sans CJK JP"));
    font.setPointSize(12);
    double y = 0;
    int pages = 1;
    for (const QString &paragraph : text.split(u'\n')) {
        QTextLayout layout(paragraph, font, &writer);
        layout.setCacheEnabled(true);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(550);
            if (y + line.height() > 802) {
                writer.newPage();
                ++pages;
                y = 0;
            }
            line.setPosition({0, y});
            y += line.height();
        }
        layout.endLayout();
        for (int i = 0; i < layout.lineCount(); ++i)
            layout.lineAt(i).draw(&painter, {0, 0});
    }
    painter.end();
    std::printf("%d pages in %.1f ms\n", pages, double(clock.nsecsElapsed()) / 1e6);
}
