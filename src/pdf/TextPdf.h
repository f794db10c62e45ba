#pragma once

#include "pdf/PdfOutput.h"
#include "typesetting/PageFormat.h"

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

/// How a text becomes a document.
struct PdfSettings {
    PageFormat format;
    std::string fontFamily;              // UTF-8; empty: the system's own
    std::string title;                   // UTF-8
    std::function<bool(int page)> wants; // by its number from 1; empty: all pages
    int lastPage = 0;                    // none is wanted behind it; 0: no such limit
    int copies = 1;
    bool collated = true;   // one copy after the other, not one page after the other
    bool lastFirst = false; // the last page comes first
    bool grey = false;      // pictures without their colours
    std::function<bool(std::size_t bytes)> hasRoom; // whether there is so much memory; empty: there is
};

/// Shared with the thread that watches.
struct PdfProgress {
    std::atomic<int> pages = 0;
    std::atomic<double> share = 0; // of the text
    std::atomic<bool> cancelled = false;
};

/// NoFonts: there are none for most of the text, and nothing has been put out.
enum class PdfResult { Written, Cancelled, Failed, NoMemory, NoFonts };

/// Sets a text in pages and writes them as a PDF: pages with text that can be searched and copied, to
/// the character. Takes a while; touches nothing that other threads use.
PdfResult writeTextPdf(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
                       PdfProgress &progress);
