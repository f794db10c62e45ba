#pragma once

#include <QString>

#include <vector>

/// Something to be found in a text: as a reader compares, or to the character.
class TextPattern {
public:
    struct Hit {
        int start = 0, end = 0; ///< characters of the text
        bool operator==(const Hit &) const = default;
    };

    TextPattern() = default;
    TextPattern(const QString &wanted, bool isExact);

    bool isEmpty() const { return m_wanted.isEmpty(); }

    /// None lies over another.
    std::vector<Hit> hitsIn(QStringView text) const;

    /// A hit has at most so many characters.
    int longestHit() const;

private:
    QString m_wanted;
    bool m_isExact = true;
};
