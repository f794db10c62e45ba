#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// Lengths in text are whole thousandths of a point.
using Millipoints = std::int32_t;

constexpr double textSize = 12.0; // points: the size at which everything is set

struct FreeHarfBuzz {
    void operator()(hb_face_t *face) const { hb_face_destroy(face); }
    void operator()(hb_font_t *font) const { hb_font_destroy(font); }
    void operator()(hb_buffer_t *buffer) const { hb_buffer_destroy(buffer); }
    void operator()(hb_blob_t *blob) const { hb_blob_destroy(blob); }
};
template <class T> using HarfBuzz = std::unique_ptr<T, FreeHarfBuzz>;

/// One face of a font file, at the size of the text.
class FontFile {
public:
    /// Nothing when the file can't be read, or holds no glyphs that can and may go into a document. The
    /// upper half of `index` is the number of an instance of a variable font, from 1; or `variations` say
    /// where on its axes it is taken: "wght=400,wdth=100".
    static std::unique_ptr<FontFile> open(const std::string &path, unsigned index,
                                          const std::string &variations = {});

    ~FontFile();

    hb_face_t *face() const { return m_face.get(); }
    hb_font_t *font() const { return m_font.get(); }

    enum class Glyphs { TrueType, PostScript, Pictures, Layers, Painted };
    Glyphs glyphs() const { return m_glyphs; }
    /// Whether only the document can draw them: what they are made of isn't what a font embeds.
    bool isDrawn() const { return m_glyphs >= Glyphs::Pictures; }

    /// Where on each of its axes a variable font is taken.
    const std::vector<hb_variation_t> &variations() const { return m_variations; }

    bool covers(char32_t character) const;

    /// The number by which an embedded font knows the glyph.
    std::uint16_t code(hb_codepoint_t glyph) const;
    /// Whether that is the number of a character in a collection, not the glyph's own.
    bool isKeyedByCharacter() const;

    Millipoints advance(hb_codepoint_t glyph) const;

    /// From where to where a glyph draws, above the baseline; the bottom one is negative below it.
    struct Ink {
        Millipoints top = 0;
        Millipoints bottom = 0;
    };
    Ink ink(hb_codepoint_t glyph) const;

    Millipoints ascent() const { return m_ascent; }   // above the baseline
    Millipoints descent() const { return m_descent; } // below it, a positive length
    Millipoints lineGap() const { return m_lineGap; }

private:
    FontFile(HarfBuzz<hb_face_t> face, Glyphs glyphs);
    void measure();
    void vary(unsigned instance, const std::string &variations);
    void openCharacterKeys(const std::string &path, unsigned index);

    struct CharacterKeys;

    HarfBuzz<hb_face_t> m_face;
    HarfBuzz<hb_font_t> m_font;
    std::unique_ptr<CharacterKeys> m_characterKeys; // where glyphs are known by them
    Glyphs m_glyphs;
    std::vector<hb_variation_t> m_variations;
    mutable std::unordered_map<hb_codepoint_t, Ink> m_inks; // which take their time
    Millipoints m_ascent = 0;
    Millipoints m_descent = 0;
    Millipoints m_lineGap = 0;
};
