#pragma once

#include <QApplication>

// The application speaks Japanese whatever the locale it runs in, and so do Qt's own dialogs.
// The environment is left as it was: the programs that we start shall find their own language there.

/// Dates, numbers, sizes, and the fonts to look for; before the application object is made.
void adoptJapaneseLocale();

/// The fonts found, with emoji in colour, and Qt's own texts; after the application object is
/// made.
void installJapaneseTexts();

/// An application whose fonts stay such when the desktop has others later.
class JapaneseApplication : public QApplication {
    Q_OBJECT

public:
    using QApplication::QApplication;

protected:
    bool event(QEvent *event) override;
};

/// Takes over the font that the desktop has now, unless it is the one that is there.
void adoptDesktopFont();
