#pragma once

#include "typesetting/PageFormat.h"

#include <QSizeF>
#include <QString>

/// The settings of one print job; lengths in points.
struct PrintInfo {
    enum class Pagination { Automatic, Fit, Clip };
    enum class JobDisposition { Spool, Save };

    Pagination horizontalPagination = Pagination::Automatic;
    Pagination verticalPagination = Pagination::Automatic;
    QSizeF paperSize = {a4.width, a4.height};
    double topMargin = 72;
    double bottomMargin = 72;
    double leftMargin = 72;
    double rightMargin = 72;
    bool horizontallyCentered = true;
    bool verticallyCentered = true;
    JobDisposition jobDisposition = JobDisposition::Spool;
    QString jobSavingPath; // of the file, when the job is to be saved

    /// What jobs start from: take a copy, and change that.
    static const PrintInfo &sharedPrintInfo()
    {
        static const PrintInfo shared;
        return shared;
    }
};

/// A text to be printed: as wide as this, as long as it takes.
struct PrintedText {
    double width = 0; // points
    QString string;
};
