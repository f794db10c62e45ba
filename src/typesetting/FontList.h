#pragma once

#include "typesetting/FontFile.h"

#include <fontconfig/fontconfig.h>

#include <string>
#include <vector>

/// The installed fonts in the order in which a text asks them for a character: the text's own family
/// first, then what the system recommends for a Japanese reader.
class FontList {
public:
    /// An empty family stands for the system's default.
    explicit FontList(const std::string &family);
    ~FontList();
    FontList(const FontList &) = delete;
    FontList &operator=(const FontList &) = delete;

    /// The text's own font; nothing on a system without any font.
    const FontFile *first();

    /// The first font with this character, or the text's own if none has it.
    const FontFile *fontFor(char32_t character);

    /// The first font that has this character as a picture, or else `fontFor`.
    const FontFile *pictureFontFor(char32_t character);

private:
    struct Candidate {
        FcPattern *font = nullptr;
        std::string path;
        unsigned index = 0;
        bool colour = false;
        const FcCharSet *characters = nullptr;
        bool tried = false;
        std::unique_ptr<FontFile> file; // opened when it is first needed
    };

    const FontFile *open(Candidate &candidate);
    const FontFile *find(char32_t character, bool colour);

    FcPattern *m_wanted;
    FcFontSet *m_found;
    std::vector<Candidate> m_candidates;
};
