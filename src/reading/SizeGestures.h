#pragma once

#include "view/State.h"

class QWidget;

/// Lets the size of a text be changed over it: by the wheel while Ctrl is held, and by two fingers that
/// move apart or together. `viewport` is what shows the text.
void stepSizeOver(QWidget *viewport, State<double> &fontSize);
