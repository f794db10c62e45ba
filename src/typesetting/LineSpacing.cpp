#include "typesetting/LineSpacing.h"

#include <algorithm>

namespace {

constexpr std::size_t any = std::size_t(Stretch::Any);
constexpr Millipoints step = square / 1000; // whole numbers are short ones
constexpr Millipoints invisible = 100;

std::span<const Cell> withoutHanging(std::span<const Cell> line)
{
    while (!line.empty() && line.back().kind == CharacterKind::Blank)
        line = line.first(line.size() - 1);
    return line;
}

// Blanks between words grow first, then what parts Japanese from others, and then everything alike.
Spread shared(Millipoints room, const std::array<Millipoints, 4> &places)
{
    Spread spread{};
    for (std::size_t i = 0; i < any; ++i) {
        if (places[i] > 0)
            spread[i] = std::min(room / places[i] / step * step, quarterSquare);
        room -= spread[i] * places[i];
    }
    const Millipoints all = places[0] + places[1] + places[any];
    if (room < invisible || all == 0)
        return spread;
    const Millipoints each = room / all;
    if (each > quarterSquare)
        return {}; // that would tear it apart
    for (std::size_t i = 0; i <= any; ++i)
        spread[i] += each;
    return spread;
}

// They would see blanks between characters that are set apart, or a new line where they close up. (Between
// words, there is one.)
bool isMisread(Millipoints apart, Stretch stretch)
{
    return apart < -square / 5 || (apart > square / 10 && stretch >= Stretch::WesternBoundary);
}

} // namespace

Spread spreadOver(std::span<const Cell> line, Millipoints width)
{
    const auto seen = withoutHanging(line);
    std::array<Millipoints, 4> places{};
    Millipoints room = width;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        room -= seen[i].advance;
        if (seen[i].kind == CharacterKind::Tab)
            return {};
        if (i + 1 == seen.size())
            break;
        const Gap gap = gapBetween(seen[i], seen[i + 1]);
        room -= gap.room;
        ++places[std::size_t(gap.stretch)];
    }
    if (room < 0 && seen.back().spacing == Spacing::Closing)
        room += halfSquare; // the blank half of it hangs
    return room > 0 ? shared(room, places) : Spread{};
}

bool isJapanese(std::span<const Cell> line)
{
    Millipoints japanese = 0;
    Millipoints all = 0;
    for (const Cell &cell : line) {
        all += cell.advance;
        if (spacing::isJapanese(cell.spacing))
            japanese += cell.advance;
    }
    return japanese > all / 2;
}

Misread setApart(std::span<const Cell> line, std::span<Glyph> glyphs, const Spread &spread)
{
    Misread misread{.anyUnsaid = !line.empty() && line.back().marks.isUnsaid, .apart = {}};
    const Glyph *end = glyphs.data() + glyphs.size();
    Glyph *next = glyphs.data();
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        next += line[i].glyphs;
        const Gap gap = gapBetween(line[i], line[i + 1]);
        const Millipoints apart = gap.room + spread[std::size_t(gap.stretch)];
        misread.anyUnsaid = misread.anyUnsaid || line[i].marks.isUnsaid;
        if (apart == 0 || next == end)
            continue;
        next[-1].excess += apart;
        if (isMisread(apart, gap.stretch))
            misread.apart.push_back(i);
    }
    return misread;
}
