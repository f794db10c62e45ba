#pragma once

#include "ManualText.h"
#include "pdf/PdfFile.h"
#include "pdf/PngPixels.h"
#include "typesetting/FontList.h"
#include "typesetting/Page.h"
#include "typesetting/PageFormat.h"

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

    /// A stretch of a page's content that readers are told of: part of a block, or of its label.
    struct Content {
        ManualBlock::Kind kind;
        std::size_t block = 0;
        bool isLabel = false;
        std::string more; // entries of its element
    };
    struct Sheet {
        std::string drawing;
        std::vector<Content> contents;
    };

    ManualPages(PdfFile &file, FontList &fonts, DocumentFonts &codes, std::filesystem::path pictures);

    void add(const ManualBlock &block);
    /// Ends the last page, and numbers all.
    void finish();

    const std::vector<Sheet> &sheets() const { return m_sheets; }
    const std::vector<Chapter> &chapters() const { return m_chapters; }
    /// As resources.
    std::string images() const { return "<<" + m_images + ">>"; }
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
    void addPicture(const ManualBlock &picture, std::size_t block);
    void addContent(const Content &content, const std::string &drawing);
    void addArtifact(const std::string &drawing);
    void addGround(double height);
    void draw(const ManualBlock &picture, std::size_t block);
    Pixels pixelsOf(const std::string &picture) const;
    std::pair<double, double> sizeOf(const Pixels &pixels) const;
    double heightOf(const std::string &picture) const;
    void makeRoom(double height);
    void newPage();

    PdfFile &m_file;
    FontList &m_fonts;
    DocumentFonts &m_codes;
    std::filesystem::path m_pictures;
    PageFormat m_format{.top = 64, .bottom = 64, .left = 64, .right = 64};
    std::string m_images;
    int m_imageCount = 0;
    std::size_t m_block = 0;
    std::vector<Sheet> m_sheets;
    std::vector<Chapter> m_chapters;
    // Pictures for which there was no room, and their blocks; the text goes on meanwhile.
    std::vector<std::pair<ManualBlock, std::size_t>> m_waiting;
    Sheet m_sheet;
    double m_y = 0; // of the page, from its bottom: what is above is taken
};
