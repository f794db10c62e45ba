#include "typesetting/Paragraphs.h"

namespace {

constexpr char16_t firstThatRunsLeft = 0x590;

// Most of Japanese is neither the end of a paragraph nor run to the left: that is found out first.
bool isBetween(char16_t c)
{
    return c > 0x2069 && c < 0xd802;
}

bool endsParagraph(char16_t c)
{
    return (c >= u'\n' && c <= u'\r') || c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Hebrew to Arabic and its kin, their presentation forms, the planes with more of them (by their first
// surrogates), and the characters that order a direction.
bool mayRunLeft(char16_t c)
{
    return c >= firstThatRunsLeft
        && (c < 0x900 || (c >= 0xfb1d && c <= 0xfeff) || (c >= 0xd802 && c <= 0xd803)
            || (c >= 0xd83a && c <= 0xd83b) || c == 0x200f || (c >= 0x202a && c <= 0x202e)
            || (c >= 0x2066 && c <= 0x2069));
}

} // namespace

Paragraph paragraphAt(std::u16string_view text, std::size_t from)
{
    Paragraph paragraph;
    std::size_t end = from;
    for (; end < text.size(); ++end) {
        const char16_t c = text[end];
        if (isBetween(c)) [[likely]]
            continue;
        if (endsParagraph(c))
            break;
        paragraph.maybeAddresses = paragraph.maybeAddresses || c == u':' || c == u'@';
        paragraph.maybeRightToLeft = paragraph.maybeRightToLeft || mayRunLeft(c);
    }
    paragraph.text = text.substr(from, end - from);
    paragraph.next = end;
    if (end < text.size()) {
        const bool pair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
        paragraph.next += pair ? 2 : 1;
        paragraph.endsPage = text[end] == u'\f';
    }
    return paragraph;
}
