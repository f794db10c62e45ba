#include "typesetting/LineMarks.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

class Marks {
public:
    Marks(std::span<const Cell> line, Language language)
        : m_line(line)
        , m_language(language)
    {
    }

    void addAddress(std::size_t cell, const Address &address)
    {
        endForeign();
        const bool goesOn = !m_all.empty() && m_all.back().address == &address;
        if (!goesOn)
            m_all.push_back({.begin = cell, .address = &address});
        m_all.back().end = cell + 1;
    }

    void addCharacter(std::size_t cell)
    {
        const Language language = m_line[cell].language;
        if (language == Languages::common)
            return; // goes with what is around it
        if (language != m_foreign.language)
            endForeign();
        if (language == m_language)
            return;
        if (m_foreign.language == Languages::common)
            m_foreign = {.begin = cell, .language = language};
        m_foreign.end = cell + 1;
    }

    std::vector<LineMark> taken()
    {
        endForeign();
        return std::move(m_all);
    }

private:
    void endForeign()
    {
        const LineMark ended = std::exchange(m_foreign, {});
        const auto cells = m_line.subspan(ended.begin, ended.end - ended.begin);
        const auto isBlank = [](const Cell &cell) { return cell.kind == CharacterKind::Blank; };
        const bool isOneWord = std::none_of(cells.begin(), cells.end(), isBlank);
        if (!cells.empty() && !(isOneWord && Languages::isBorrowed(ended.language)))
            m_all.push_back(ended);
    }

    std::span<const Cell> m_line;
    Language m_language;
    LineMark m_foreign;
    std::vector<LineMark> m_all;
};

} // namespace

std::vector<LineMark> marksOf(std::span<const Cell> line, std::size_t lineStart,
                              const std::deque<Address> &addresses, Language language)
{
    Marks marks(line, language);
    std::size_t unit = lineStart;
    auto next = addresses.begin();
    for (std::size_t cell = 0; cell < line.size(); unit += line[cell++].length) {
        while (next != addresses.end() && next->end() <= unit)
            ++next;
        if (next != addresses.end() && next->begin <= unit)
            marks.addAddress(cell, *next);
        else
            marks.addCharacter(cell);
    }
    return marks.taken();
}
