#pragma once

#include <QString>

#include <vector>

/// A text as it is compared with what a Japanese reader looks for: letter case, full and half width,
/// hiragana and katakana are alike, and a character is the same whether it is written as one or with marks
/// that follow.
struct Folded {
    QString text;
    /// Where each of its characters comes from, and last the end; empty where each comes from its own
    /// place.
    std::vector<int> origins;

    int origin(qsizetype index) const { return origins.empty() ? int(index) : origins[size_t(index)]; }
};

Folded folded(QStringView text);
