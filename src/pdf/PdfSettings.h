#pragma once

#include "pdf/PdfOutput.h"
#include "typesetting/PageFormat.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// Pages by their numbers from 1, both ends included.
struct PageRange {
    std::int32_t first, last;
};

/// How a text becomes a document.
struct PdfSettings {
    PageFormat format;
    std::string fontFamily;        // UTF-8; empty: the system's own
    std::string title;             // UTF-8
    std::vector<PageRange> ranges; // those that are wanted; none: all pages
    int lastPage = 0;              // none is wanted behind it; 0: no such limit
    int copies = 1;
    bool collated = true;   // one copy after the other, not one page after the other
    bool lastFirst = false; // the last page comes first
    bool grey = false;      // pictures without their colours
    std::function<bool(std::size_t bytes)> hasRoom; // whether there is so much memory; empty: there is

    bool wants(int page) const
    {
        const auto holds = [page](PageRange range) { return range.first <= page && page <= range.last; };
        return ranges.empty() || std::any_of(ranges.begin(), ranges.end(), holds);
    }
};

/// Shared with the thread that watches.
struct PdfProgress {
    std::atomic<int> pages = 0;
    std::atomic<double> share = 0; // of the text
    std::atomic<bool> cancelled = false;
};

/// NoFonts: there are none for most of the text, and nothing has been put out.
enum class PdfResult { Written, Cancelled, Failed, NoMemory, NoFonts };
