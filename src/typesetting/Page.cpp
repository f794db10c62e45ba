#include "typesetting/Page.h"

#include <iterator>

Page onlyLine(const Page &page, std::size_t line)
{
    std::size_t begin = 0;
    for (std::size_t i = 0; i < line; ++i)
        begin += page.lines[i].glyphs;
    const std::size_t end = begin + page.lines[line].glyphs;
    Page alone;
    alone.lines.push_back(page.lines[line]);
    alone.glyphs.assign(std::next(page.glyphs.begin(), std::ptrdiff_t(begin)),
                        std::next(page.glyphs.begin(), std::ptrdiff_t(end)));
    for (Saying saying : page.sayings) {
        if (saying.first < begin || saying.first >= end)
            continue;
        saying.first -= begin;
        alone.sayings.push_back(std::move(saying));
    }
    return alone;
}
