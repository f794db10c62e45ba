#pragma once

#include <QMessageBox>

/// A box that tells the person something, modal for the window. Both texts are shown as they are, whatever
/// marks they hold: some come from others. Shown at once; it ends with the window or when it is closed.
QMessageBox *showNotice(QMessageBox::Icon kind, const QString &what, const QString &why, QWidget *window);
