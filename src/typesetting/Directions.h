#pragma once

#include "typesetting/Paragraphs.h"

#include <unicode/ubidi.h>

#include <cstdint>
#include <memory>
#include <vector>

/// Which way each unit of a paragraph runs: an even level to the right, an odd one to the left.
class Directions {
public:
    void setParagraph(const Paragraph &paragraph);

    std::uint8_t base() const { return m_base; }
    std::uint8_t levelAt(std::size_t unit) const { return m_levels ? m_levels[unit] : 0; }
    /// The end of the stretch around `unit` that runs one way.
    std::size_t endOfRun(std::size_t unit) const;

    /// The places of cells with these levels, from left to right.
    static std::vector<std::int32_t> visualOrder(const std::vector<UBiDiLevel> &levels);

private:
    struct Close {
        void operator()(UBiDi *bidi) const { ubidi_close(bidi); }
    };

    std::unique_ptr<UBiDi, Close> m_bidi;
    const UBiDiLevel *m_levels = nullptr;
    std::size_t m_length = 0;
    std::uint8_t m_base = 0;
};
