#pragma once

// The application speaks Japanese whatever the locale it runs in, and so do the toolkit's own dialogs.

/// Dates, numbers and sizes; before the application object is made.
void adoptJapaneseLocale();

/// The toolkit's own texts; after the application object is made.
void installJapaneseTexts();
