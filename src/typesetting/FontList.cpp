#include "typesetting/FontList.h"

#include <fontconfig/fontconfig.h>
#include <utility>

namespace {

FcPattern *wantedFont(const std::string &family)
{
    FcPattern *wanted = FcPatternCreate();
    const auto text = [&](const char *property, const char *value) {
        FcPatternAddString(wanted, property, reinterpret_cast<const FcChar8 *>(value));
    };
    if (!family.empty())
        text(FC_FAMILY, family.c_str());
    text(FC_FAMILY, "sans-serif");
    text(FC_LANG, "ja");
    FcPatternAddInteger(wanted, FC_WEIGHT, FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted, FC_SLANT, FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    return wanted;
}

FcFontSet *sortedFonts(FcPattern *wanted)
{
    FcResult result = FcResultNoMatch;
    return FcFontSort(nullptr, wanted, FcFalse, nullptr, &result);
}

bool isTrue(FcPattern *font, const char *property)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(font, property, 0, &value) == FcResultMatch && value;
}

// Where on the axes of a variable font the wanted one lies, as fontconfig writes that.
std::string variationsOf(FcPattern *font, FcPattern *wanted)
{
    FcPattern *prepared = FcFontRenderPrepare(nullptr, wanted, font);
    FcChar8 *variations = nullptr;
    std::string found;
    if (prepared && FcPatternGetString(prepared, FC_FONT_VARIATIONS, 0, &variations) == FcResultMatch)
        found = reinterpret_cast<const char *>(variations);
    if (prepared)
        FcPatternDestroy(prepared);
    return found;
}

} // namespace

FontList::FontList(const std::string &family)
    : m_wanted(wantedFont(family))
    , m_found(sortedFonts(m_wanted))
{
    for (int i = 0; m_found && i < m_found->nfont; ++i) {
        FcPattern *font = m_found->fonts[i];
        FcChar8 *path = nullptr;
        int index = 0;
        FcCharSet *characters = nullptr;
        if (FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch
            || FcPatternGetInteger(font, FC_INDEX, 0, &index) != FcResultMatch
            || FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) != FcResultMatch)
            continue;
        m_candidates.push_back({font, reinterpret_cast<const char *>(path), unsigned(index),
                                isTrue(font, FC_COLOR), characters, false, nullptr});
    }
}

FontList::~FontList()
{
    if (m_found)
        FcFontSetDestroy(m_found);
    FcPatternDestroy(m_wanted);
}

const FontFile *FontList::open(Candidate &candidate)
{
    if (!std::exchange(candidate.tried, true)) {
        const std::string variations =
            isTrue(candidate.font, FC_VARIABLE) ? variationsOf(candidate.font, m_wanted) : std::string();
        candidate.file = FontFile::open(candidate.path, candidate.index, variations);
    }
    return candidate.file.get();
}

const FontFile *FontList::first()
{
    for (Candidate &candidate : m_candidates) {
        if (const FontFile *file = candidate.colour ? nullptr : open(candidate))
            return file;
    }
    return nullptr;
}

const FontFile *FontList::find(char32_t character, bool colour)
{
    for (Candidate &candidate : m_candidates) {
        if (candidate.colour != colour || !FcCharSetHasChar(candidate.characters, character))
            continue;
        const FontFile *file = open(candidate);
        if (file && file->covers(character))
            return file;
    }
    return nullptr;
}

const FontFile *FontList::fontFor(char32_t character)
{
    if (const FontFile *own = first(); own && own->covers(character))
        return own;
    if (const FontFile *outlines = find(character, false))
        return outlines;
    const FontFile *pictures = find(character, true);
    return pictures ? pictures : first();
}

const FontFile *FontList::pictureFontFor(char32_t character)
{
    const FontFile *pictures = find(character, true);
    return pictures ? pictures : fontFor(character);
}
