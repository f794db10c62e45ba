#pragma once

#include "typesetting/Addresses.h"
#include "typesetting/Shaper.h"

#include <span>

/// A stretch of a line's cells that readers are told something about: it is part of an address, or in
/// another language.
struct LineMark {
    std::size_t begin = 0; // of the cells
    std::size_t end = 0;
    const Address *address = nullptr;
    Language language = Languages::common; // the paragraph's, if it is that
};

/// Those of a line in their order; none overlap. `addresses` are those of the paragraph, in which the line
/// begins at `lineStart`; `language` is the paragraph's.
std::vector<LineMark> marksOf(std::span<const Cell> line, std::size_t lineStart,
                              const std::deque<Address> &addresses, Language language);
