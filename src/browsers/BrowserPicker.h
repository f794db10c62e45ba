#pragma once

#include "view/State.h"

#include <QStringList>

class BrowserChoice;
class QWidget;

/// The pop-up list of the browsers that were found, looked for anew whenever it appears; the chosen one
/// is `selectedBrowser`.
QWidget *BrowserPicker(const State<QStringList> &browsers, State<QString> &selectedBrowser,
                       BrowserChoice &choice);
