#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/PageFormat.h"

/// A page that is yet to be written.
struct PageObjects {
    int content = 0;
    int key = -1;           // by which its structure is found; none: -1
    std::vector<int> links; // annotations
};

/// The pages of a document as readers find them.
struct PageTree {
    int root = 0;
    std::vector<int> pages; // the objects, in order
};

/// Writes these pages, in that order. `resources` are what all of them refer to.
PageTree writePages(PdfFile &file, const std::vector<PageObjects> &pages, const std::string &resources,
                    const PageFormat &format);
