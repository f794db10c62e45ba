#pragma once

// The application speaks Japanese whatever the locale it runs in, and so do Qt's own dialogs.
// The environment is left as it was: the programs that we start shall find their own language there.

/// Dates, numbers, sizes, and the fonts to look for; before the application object is made.
void adoptJapaneseLocale();

/// The fonts found, with emoji in colour, and Qt's own texts; after the application object is
/// made.
void installJapaneseTexts();
