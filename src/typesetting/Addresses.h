#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// An address in a text that a reader can follow.
struct Address {
    std::size_t begin = 0;
    std::size_t length = 0;
    std::string target;       // with its scheme
    std::uint32_t number = 0; // in the text, from 1
};

/// Those of the web and of mail, in their order. What a sentence puts around them isn't part of them. Their
/// numbers follow on `last`.
std::vector<Address> addressesIn(std::u16string_view text, std::uint32_t last);
