#pragma once

class QString;
class QWidget;

/// Says something to who listens to a screen reader, wherever the keyboard is; others see nothing of it.
void announce(const QString &what, QWidget *widget);
