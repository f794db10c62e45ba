#pragma once

#include <QAccessible>

/// What assistive technology is told of a picker: its title stays its name, and the row that is chosen
/// is its value. Qt's own says the row instead of the name.
QAccessibleInterface *pickerAccessible(const QString &key, QObject *object);
