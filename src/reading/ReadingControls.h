#pragma once

#include "view/State.h"

#include <functional>

class QWidget;

/// What the buttons of the controls row do.
struct ReadingActions {
    std::function<void()> startSimulation;
    std::function<void()> openText;
    std::function<void()> savePdf;
    std::function<void()> launch;
};

/// The row above the text pane: font size, the four tools, and the browser picker.
QWidget *ReadingControls(State<double> &fontSize, const ReadingActions &act, QWidget *picker);
