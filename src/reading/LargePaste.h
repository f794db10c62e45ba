#pragma once

#include <QString>

class TextPane;

/// Puts a text into a pane in place of what is selected there: one so large that the whole is made anew on
/// another thread, and enters the pane as a text that was assigned does. The pane waits; what doesn't fit
/// into the memory is refused, and the person is told.
void pasteLargeText(TextPane &pane, const QString &pasted);
