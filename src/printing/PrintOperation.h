#pragma once

#include "printing/PrintInfo.h"

#include <QWidget>

#include <functional>
#include <utility>

/// Prints a text, or saves it as a document: asks in the print dialog, shows how far it has come, and
/// tells the person itself what goes wrong. An operation is used once and belongs to the window that it
/// is modal for: it ends with that window, leaving no file, and then answers nobody.
class PrintOperation : public QObject {
public:
    PrintOperation(PrintedText text, PrintInfo info, QWidget *window)
        : QObject(window)
        , m_text(std::move(text))
        , m_info(std::move(info))
    {
    }

    void setShowsPrintPanel(bool shows) { m_showsPrintPanel = shows; }
    void setShowsProgressPanel(bool shows) { m_showsProgressPanel = shows; }

    /// Starts and returns; `ended` is told later whether all has been printed or saved.
    virtual void runOperation(std::function<void(bool)> ended) = 0;

    QWidget *window() const { return static_cast<QWidget *>(parent()); }

protected:
    PrintedText m_text;
    PrintInfo m_info;
    bool m_showsPrintPanel = true;
    bool m_showsProgressPanel = true;
};

/// The system's own printing, which is loaded when it is first asked for.
PrintOperation *newPrintOperation(PrintedText text, PrintInfo info, QWidget *window);
