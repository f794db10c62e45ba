#include "printing/PrintChoice.h"

#include <QPageRanges>
#include <QPrintEngine>

#include <cmath>

namespace {

// Qt's dialog leaves here what was chosen for this queue alone: names and values by turns.
constexpr auto queueOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);

PageFormat chosenFormat(const QPrinter &printer, double longestLine)
{
    const QPageLayout layout = printer.pageLayout();
    const QSizeF sheet = layout.fullRect(QPageLayout::Point).size();
    const QMarginsF margins = layout.margins(QPageLayout::Point);
    return {.width = sheet.width(),
            .height = sheet.height(),
            .top = margins.top(),
            .bottom = margins.bottom(),
            .left = margins.left(),
            .right = margins.right(),
            .longestLine = longestLine};
}

std::vector<PageRange> wantedPages(const QPrinter &printer)
{
    std::vector<PageRange> wanted;
    if (printer.printRange() != QPrinter::PageRange)
        return wanted;
    for (const QPageRanges::Range &range : printer.pageRanges().toRangeList())
        wanted.push_back({range.from, range.to});
    return wanted;
}

const char *sides(QPrinter::DuplexMode mode)
{
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
        return "two-sided-short-edge";
    case QPrinter::DuplexNone:
        return "one-sided";
    case QPrinter::DuplexAuto:
        break;
    }
    return nullptr;
}

} // namespace

void preset(QPrinter &printer, const PrintInfo &info)
{
    if (info.jobDisposition == PrintInfo::JobDisposition::Save) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(info.jobSavingPath);
    }
    const QPageSize paper(info.paperSize, QPageSize::Point, {}, QPageSize::FuzzyMatch);
    const QMarginsF margins(info.leftMargin, info.topMargin, info.rightMargin, info.bottomMargin);
    printer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait, margins, QPageLayout::Point));
}

PdfSettings chosenPages(const QPrinter &printer, const PrintedText &text)
{
    PdfSettings settings;
    settings.format = chosenFormat(printer, text.width);
    settings.ranges = wantedPages(printer);
    if (!settings.ranges.empty())
        settings.lastPage = printer.pageRanges().lastPage();
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        settings.copies = printer.copyCount();
        settings.collated = printer.collateCopies();
        settings.lastFirst = printer.pageOrder() == QPrinter::LastPageFirst;
        settings.grey = printer.colorMode() == QPrinter::GrayScale;
    }
    return settings;
}

PrintTarget chosenTarget(const QPrinter &printer)
{
    PrintTarget target;
    if (printer.outputFormat() == QPrinter::PdfFormat || !printer.outputFileName().isEmpty()) {
        target.file = printer.outputFileName();
        return target;
    }
    target.queue = printer.printerName();
    const QStringList own = printer.printEngine()->property(queueOptions).toStringList();
    for (qsizetype i = 0; i + 1 < own.size(); i += 2)
        target.options.emplace_back(own[i].toStdString(), own[i + 1].toStdString());
    const auto option = [&](const char *name, const QString &value) {
        target.options.emplace_back(name, value.toStdString());
    };
    const QPageSize paper = printer.pageLayout().pageSize();
    const QSize size = paper.sizePoints();
    option("media",
           paper.id() == QPageSize::Custom
               ? QStringLiteral("Custom.%1x%2").arg(size.width()).arg(size.height())
               : paper.key());
    option("copies", QString::number(printer.copyCount()));
    option("Collate", printer.collateCopies() ? QStringLiteral("true") : QStringLiteral("false"));
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        option("outputorder", QStringLiteral("reverse"));
    if (const char *chosen = sides(printer.duplex()))
        option("sides", QString::fromLatin1(chosen));
    if (printer.colorMode() == QPrinter::GrayScale)
        option("print-color-mode", QStringLiteral("monochrome"));
    return target;
}
