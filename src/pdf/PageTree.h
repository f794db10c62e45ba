#pragma once

#include "pdf/PdfFile.h"
#include "typesetting/PageFormat.h"

/// The pages of a document as readers find them: a tree of a few levels, whatever their number.
struct PageTree {
    int root = 0;
    std::vector<int> pages; // the objects, in order
};

/// Writes pages that show these contents, in that order; the same one may come again. `resources` are what
/// all of them refer to.
PageTree writePages(PdfFile &file, const std::vector<int> &contents, const std::string &resources,
                    const PageFormat &format);
