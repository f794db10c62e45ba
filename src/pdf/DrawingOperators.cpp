#include "pdf/DrawingOperators.h"

#include "pdf/TextOperators.h"

#include <algorithm>
#include <utility>

namespace {

class Content {
public:
    explicit Content(const Page &page)
        : m_page(page)
        , m_glyphs(page.glyphs)
        , m_text(page.glyphs.size())
        , m_nextMark(nextMark())
    {
    }

    void add(const Line &line);
    std::string finished();

private:
    void addGlyph();
    bool goesOnLike(Millipoints after) const;
    std::size_t nextMark() const;
    void beginMarks();
    void endMarks();
    void beginPassage(const Passage &passage);
    void endPassage();

    const Page &m_page;
    const std::vector<Glyph> &m_glyphs;
    TextOperators m_text;
    std::size_t m_glyph = 0;
    std::size_t m_lineEnd = 0;
    bool m_goesBack = false; // in the line
    // Those that begin next, and where the first of them does.
    std::size_t m_passage = 0;
    std::size_t m_foreign = 0;
    std::size_t m_saying = 0;
    std::size_t m_nextMark;
    // And where those end that have begun; 0 outside of one.
    std::size_t m_foreignEnd = 0;
    std::size_t m_sayingEnd = 0;
    bool m_inPassage = false;
    int m_contents = 0; // that belong to paragraphs
};

void Content::add(const Line &line)
{
    if (line.glyphs == 0)
        return;
    m_text.beginLine(line.left, line.baseline);
    m_lineEnd = m_glyph + line.glyphs;
    m_goesBack = line.goesBack;
    for (; m_glyph < m_lineEnd; ++m_glyph) {
        if (m_glyph == m_nextMark)
            beginMarks();
        addGlyph();
        if (m_glyph + 1 == m_sayingEnd || m_glyph + 1 == m_foreignEnd)
            endMarks();
    }
    m_text.endLine();
}

void Content::addGlyph()
{
    const Glyph &glyph = m_glyphs[m_glyph];
    const Millipoints after = glyph.excess - glyph.right;
    m_text.setMute(glyph.code.isMute && m_sayingEnd == 0);
    m_text.setFont(glyph.code.font);
    m_text.setRise(glyph.up);
    if (after != m_text.spacing() && goesOnLike(after))
        m_text.setSpacing(after);
    if (glyph.right != 0)
        m_text.move(glyph.right);
    m_text.show(glyph.code);
    if (after == m_text.spacing() || m_glyph + 1 == m_lineEnd)
        return;
    m_text.move(after - m_text.spacing());
    if (m_goesBack && after < 0)
        m_text.endShown(); // some readers take what is shown at once for a stretch from left to right
}

// Whether the next glyphs of the line have as much behind them: then saying so once is shorter.
bool Content::goesOnLike(Millipoints after) const
{
    constexpr std::size_t worthIt = 3;
    if (m_lineEnd - m_glyph < worthIt)
        return false;
    for (std::size_t next = m_glyph + 1; next < m_glyph + worthIt; ++next) {
        if (m_glyphs[next].excess - m_glyphs[next].right != after)
            return false;
    }
    return true;
}

std::size_t Content::nextMark() const
{
    const auto first = [](const auto &all, std::size_t next) {
        return next < all.size() ? all[next].first : std::size_t(-1);
    };
    return std::min({first(m_page.passages, m_passage), first(m_page.foreign, m_foreign),
                     first(m_page.sayings, m_saying)});
}

// From the outside to the inside.
void Content::beginMarks()
{
    const auto beginsHere = [this](const auto &all, std::size_t next) {
        return next < all.size() && all[next].first == m_glyph;
    };
    if (beginsHere(m_page.passages, m_passage))
        beginPassage(m_page.passages[m_passage++]);
    if (beginsHere(m_page.foreign, m_foreign)) {
        const Foreign &foreign = m_page.foreign[m_foreign++];
        m_text.beginMark("/Span<</Lang(" + foreign.language + ")>>BDC");
        m_foreignEnd = foreign.first + foreign.glyphs;
    }
    if (beginsHere(m_page.sayings, m_saying)) {
        const Saying &saying = m_page.sayings[m_saying++];
        m_text.beginSaying(saying.text);
        m_sayingEnd = saying.first + saying.glyphs;
    }
    m_nextMark = nextMark();
}

void Content::endMarks()
{
    for (std::size_t *end : {&m_sayingEnd, &m_foreignEnd}) {
        if (*end != m_glyph + 1)
            continue;
        m_text.endMark();
        *end = 0;
    }
}

void Content::beginPassage(const Passage &passage)
{
    endPassage();
    const std::string content = "<</MCID " + std::to_string(m_contents) + ">>BDC";
    if (passage.paragraph == 0)
        m_text.beginMark("/Artifact BMC");
    else
        m_text.beginMark((passage.address == 0 ? "/P" : "/Link") + content);
    m_contents += passage.paragraph != 0;
    m_inPassage = true;
}

void Content::endPassage()
{
    if (std::exchange(m_inPassage, false))
        m_text.endMark();
}

std::string Content::finished()
{
    endPassage();
    return m_text.finished();
}

} // namespace

std::string drawingOperators(const Page &page)
{
    Content content(page);
    for (const Line &line : page.lines)
        content.add(line);
    return content.finished();
}
