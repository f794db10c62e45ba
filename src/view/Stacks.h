#pragma once

#include <Qt>

#include <initializer_list>
#include <optional>

class QWidget;

// Containers. Children are given in a braced list, which evaluates left to right, so that the order
// in which they are written is the order on screen and the order of the Tab key.

struct StackOptions {
    std::optional<int> spacing = {}; ///< pixels between children; the style's own when absent
    bool padded = false;             ///< the style's own margins around the children
    Qt::Alignment alignment = {};    ///< of the children across the stack
};

QWidget *HStack(std::initializer_list<QWidget *> children, StackOptions options = {});
QWidget *VStack(std::initializer_list<QWidget *> children, StackOptions options = {});

/// Shows `content` at its own size or larger, and lets it be scrolled where there is less room.
QWidget *Scrollable(QWidget *content);
