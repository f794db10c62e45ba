#pragma once

#include <QStringView>

#include <memory>
#include <vector>

/// How much like a text something reads, whichever of some languages it may be in. The measure is a
/// cost, about ten times the negative logarithm of how probable each character is: what is common in a
/// language costs little, what no language uses costs much, and the least dear language counts.
class Plausibility {
public:
    Plausibility();
    ~Plausibility();
    Plausibility(const Plausibility &) = delete;
    Plausibility &operator=(const Plausibility &) = delete;

    struct Cost {
        double whole = 0;         // of all characters
        double foreign = 0;       // on average, of those that aren't ASCII
        qsizetype foreigners = 0; // how many those are
        bool isText = true;       // false with control characters that no text has
    };
    Cost cost(QStringView text) const;

private:
    struct Language;
    std::vector<Language> m_languages;
};
