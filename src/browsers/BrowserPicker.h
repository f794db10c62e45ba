#pragma once

#include "view/State.h"

#include <QStringList>

class QWidget;

/// The pop-up list of the browsers that were found; the chosen one is `selectedBrowser`.
QWidget *BrowserPicker(const State<QStringList> &browsers, State<QString> &selectedBrowser);
