#pragma once

#include "view/State.h"

#include <QString>
#include <QStringList>

#include <functional>

class QIcon;
class QWidget;

// Controls. Each shows what its state says and writes back what the user does; titles are shown
// verbatim (no markup, no mnemonic from an ampersand) and are the accessible names.

QWidget *Text(const QString &text);
QWidget *Text(std::function<QString()> text);

QWidget *Button(const QString &title, std::function<void()> action);

/// A check box with its title.
QWidget *Toggle(const QString &title, const Binding<bool> &isOn);

struct SliderRange {
    double from;
    double to;
    double step;
    QString unit = {}; // in words, for who doesn't see the value
};
/// A visible title and a slider whose values are the multiples of the step in this range.
QWidget *Slider(const QString &title, Binding<double> value, const SliderRange &range);

/// A visible title above a pop-up list; a row is shown as chosen when it equals `selection`. Icons
/// are asked for from when somebody first turns to it, and follow what they are made of.
QWidget *Picker(const QString &title, Binding<QString> selection, std::function<QStringList()> rows,
                std::function<QIcon(const QString &row)> icon = {});
