#pragma once

#include <cstddef>
#include <string_view>

struct UBreakIterator;

/// Where a line of a paragraph may end, as Unicode and the strict rules of Japanese typesetting
/// have it.
class LineBreaks {
public:
    LineBreaks();
    ~LineBreaks();
    LineBreaks(const LineBreaks &) = delete;
    LineBreaks &operator=(const LineBreaks &) = delete;

    void setParagraph(std::u16string_view paragraph);

    /// The last place after `lineStart` and not beyond `at` where the line may end; `lineStart` if
    /// there is none.
    std::size_t lastBreak(std::size_t lineStart, std::size_t at);

private:
    void lookAt(std::size_t from);
    bool isProhibited(std::size_t at) const;

    UBreakIterator *m_iterator = nullptr;
    std::u16string_view m_paragraph;
    // The iterator sees this much of the paragraph at a time: some of its rules look all the way back.
    std::size_t m_windowStart = 0;
    std::size_t m_windowEnd = 0;
};
