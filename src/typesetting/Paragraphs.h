#pragma once

#include <cstddef>
#include <string_view>

/// A stretch of text up to a line end, whichever of the world's line ends that is.
struct Paragraph {
    std::u16string_view text;
    std::size_t next = 0;          // where the following one begins
    bool endsPage = false;         // at a form feed
    bool maybeRightToLeft = false; // holds characters that may run that way
    bool maybeAddresses = false;   // and those without which there is no address
};

Paragraph paragraphAt(std::u16string_view text, std::size_t from);
