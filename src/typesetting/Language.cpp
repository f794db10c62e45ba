#include "typesetting/Language.h"

#include <unicode/uloc.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <map>

namespace {

std::string likelyTag(const std::string &script)
{
    char whole[ULOC_FULLNAME_CAPACITY] = "";
    char tag[ULOC_LANG_CAPACITY] = "";
    UErrorCode error = U_ZERO_ERROR;
    uloc_addLikelySubtags(("und_" + script).c_str(), whole, sizeof whole, &error);
    uloc_getLanguage(whole, tag, sizeof tag, &error);
    return U_SUCCESS(error) && std::string_view(tag) != "und" ? tag : "";
}

} // namespace

namespace Languages {

Language of(UScriptCode script)
{
    switch (script) {
    case USCRIPT_COMMON:
    case USCRIPT_INHERITED:
    case USCRIPT_UNKNOWN:
        return common;
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_KATAKANA_OR_HIRAGANA:
        return japanese;
    default:
        return Language(script);
    }
}

Language mostOf(std::u16string_view text)
{
    constexpr std::size_t enough = 100;
    constexpr char16_t firstKana = 0x3041, lastKana = 0x30ff;
    std::map<Language, int> counts;
    text = text.substr(0, enough);
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] >= firstKana && text[at] <= lastKana)
            return japanese; // as nothing else is
        UChar32 c = 0;
        U16_NEXT(text.data(), at, text.size(), c);
        UErrorCode error = U_ZERO_ERROR;
        if (const Language language = of(uscript_getScript(c, &error)); language != common)
            ++counts[language];
    }
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](auto &a, auto &b) { return a.second < b.second; });
    return most == counts.end() ? japanese : most->first;
}

const std::string &tag(Language language)
{
    thread_local std::map<Language, std::string> known;
    const auto [found, isNew] = known.try_emplace(language);
    if (isNew)
        found->second = likelyTag(uscript_getShortName(UScriptCode(language)));
    return found->second;
}

} // namespace Languages
