#pragma once

#include "printing/PrintChoice.h"

/// How a job has ended.
struct PrintOutcome {
    PdfResult result = PdfResult::Failed;
    QString reason; // for the person, when it failed
};

/// Makes the pages of a text and saves or prints them. Takes a while, on whatever thread.
PrintOutcome print(const QString &text, const PdfSettings &settings, const PrintTarget &target,
                   PdfProgress &progress);
