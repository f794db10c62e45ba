#pragma once

#include "printing/PrintOperation.h"

/// How a print operation is begun.
using NewPrintOperation =
    std::function<PrintOperation *(PrintedText text, PrintInfo info, QWidget *window)>;

/// Lets the person print `text`, by default into `fileName`.pdf in the folder; returns with the dialog
/// open. Without that folder nothing is written.
void savePDF(const QString &fileName, const QString &text, const QString &folder,
             const NewPrintOperation &newOperation, QWidget *window);
