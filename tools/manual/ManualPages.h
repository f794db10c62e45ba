#pragma once

#include "ManualText.h"
#include "pdf/PngPixels.h"
#include "typesetting/FontList.h"
#include "typesetting/Page.h"
#include "typesetting/PageFormat.h"

#include <qpdf/QPDF.hh>

#include <filesystem>
#include <utility>

/// Sets the blocks of the manual on pages, one below the other.
class ManualPages {
public:
    struct Chapter {
        std::string title;    // UTF-8
        std::size_t page = 0; // from 0
        double top = 0;       // points from the bottom of the page
    };

    ManualPages(QPDF &document, FontList &fonts, DocumentFonts &codes, std::filesystem::path pictures);

    void add(const ManualBlock &block);
    /// Ends the last page, and numbers all.
    void finish();

    const std::vector<std::string> &contents() const { return m_contents; }
    const std::vector<Chapter> &chapters() const { return m_chapters; }
    QPDFObjectHandle images() const { return m_images; }
    const PageFormat &format() const { return m_format; }

private:
    struct Style {
        double size;  // points
        double above; // room left above it, but not at the top of a page
        double indent;
        double keep; // room that must be left below it on the same page
    };

    static Style styleOf(ManualBlock::Kind kind);
    Page set(const std::string &text, double width);
    void addText(const ManualBlock &block);
    void addPicture(const std::string &name);
    void addLine(Page line, double left, double baseline, double scale);
    void addGround(double height);
    void draw(const std::string &picture);
    Pixels pixelsOf(const std::string &picture) const;
    std::pair<double, double> sizeOf(const Pixels &pixels) const;
    double heightOf(const std::string &picture) const;
    void makeRoom(double height);
    void newPage();

    QPDF &m_document;
    FontList &m_fonts;
    DocumentFonts &m_codes;
    std::filesystem::path m_pictures;
    PageFormat m_format{.top = 64, .bottom = 64, .left = 64, .right = 64};
    QPDFObjectHandle m_images = QPDFObjectHandle::newDictionary();
    std::vector<std::string> m_contents;
    std::vector<Chapter> m_chapters;
    std::vector<std::string> m_waiting; // pictures for which there was no room; the text goes on meanwhile
    std::string m_content;
    double m_y = 0; // of the page, from its bottom: what is above is taken
};
