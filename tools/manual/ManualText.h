#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A part of the manual's source; its texts are UTF-8.
struct ManualBlock {
    enum class Kind { Title, Chapter, Section, Paragraph, Item, Code, Picture };

    Kind kind = Kind::Paragraph;
    std::string text = {};    // of a picture: what is said instead of it
    std::string picture = {}; // the name of its file
};

/// Reads Markdown as far as the manual uses it: headings of three levels, paragraphs, lists of one level,
/// commands in blocks of code, and pictures in paragraphs of their own. Emphasis and code in a line are
/// taken as plain text; throws at anything else, lest it get lost.
std::vector<ManualBlock> manualBlocks(std::string_view source);
