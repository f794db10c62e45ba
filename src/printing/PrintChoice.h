#pragma once

#include "pdf/PdfSettings.h"
#include "printing/PrintInfo.h"

#include <QPrinter>

/// Where a job goes: to a file, or to a printer's queue with these options.
struct PrintTarget {
    QString file; // empty when it is printed
    QString queue;
    std::vector<std::pair<std::string, std::string>> options;
};

/// Presets the choices of the print dialog.
void preset(QPrinter &printer, const PrintInfo &info);

/// What the person has chosen there: the pages to make, and where they go.
PdfSettings chosenPages(const QPrinter &printer, const PrintedText &text);
PrintTarget chosenTarget(const QPrinter &printer);
