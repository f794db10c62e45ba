#pragma once

#include "typesetting/Paragraphs.h"

#include <unicode/ubidi.h>

#include <cstdint>
#include <memory>
#include <vector>

/// Which way each unit of a paragraph runs: an even level to the right, an odd one to the left. To be asked
/// from its beginning to its end: a long one is looked at in pieces, as the time that the rules for
/// brackets take grows with the square of the length.
class Directions {
public:
    void setParagraph(const Paragraph &paragraph);

    std::uint8_t base() const { return m_base; }
    std::uint8_t levelAt(std::size_t unit) { return m_text.empty() ? 0 : levelInText(unit); }
    /// The end of the stretch around `unit` that runs one way.
    std::size_t endOfRun(std::size_t unit);

    /// The places of cells with these levels, from left to right.
    static std::vector<std::int32_t> visualOrder(const std::vector<UBiDiLevel> &levels);

private:
    struct Close {
        void operator()(UBiDi *bidi) const { ubidi_close(bidi); }
    };

    std::uint8_t levelInText(std::size_t unit);
    std::size_t pieceEnd(std::size_t from) const;
    void lookAt(std::size_t from);

    std::unique_ptr<UBiDi, Close> m_bidi;
    std::u16string_view m_text; // empty where all runs to the right
    std::size_t m_length = 0;
    std::uint8_t m_base = 0;
    const UBiDiLevel *m_levels = nullptr; // of the piece
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};
