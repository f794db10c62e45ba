#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

/// An address in a text that a reader can follow.
struct Address {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::string target;       // with its scheme
    std::uint32_t number = 0; // in the text, from 1

    std::size_t end() const { return begin + length; }
};

/// Finds those of the web and of mail in paragraphs, as far as lines have come: there may be a million in
/// one. What a sentence puts around them isn't part of them.
class Addresses {
public:
    void setParagraph(std::u16string_view text);

    /// Those that aren't over before `begin`, and maybe some that begin behind `end`. Lines are asked for
    /// in their order.
    const std::deque<Address> &inLine(std::size_t begin, std::size_t end);

private:
    std::u16string_view m_text;
    std::size_t m_at = 0;   // where to look next
    std::size_t m_from = 0; // before this, none begins any more
    std::uint32_t m_last = 0;
    std::deque<Address> m_found;
};
