#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/PageFormat.h"

#include <deque>

/// A page that is yet to be written; there may be millions.
struct PageObjects {
    int content = 0;
    int firstLink = 0; // annotations, whose numbers follow each other
    int links = 0;
    int parts = 0; // of the document's structure

    /// The next page's number, after this one's, in the tree by which parts of the structure are found:
    /// links have numbers of their own.
    int keyAfter(int key) const { return key + 1 + links; }
};

/// The pages of a document as readers find them.
struct PageTree {
    int root = 0;
    std::vector<int> pages; // the objects, in order
};

/// Writes these pages, in that order. `resources` are what all of them refer to.
PageTree writePages(PdfFile &file, const std::deque<PageObjects> &pages, const std::string &resources,
                    const PageFormat &format);
