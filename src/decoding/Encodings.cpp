#include "decoding/Encodings.h"

#include <QByteArray>

#include <algorithm>

namespace {
constexpr auto nowhere = Encoding::Cut::Nowhere;
}

// Who uses this program reads Japanese, and what the web took for the usual Western encoding is likelier
// than its elder kin.
const std::vector<Encoding> &encodings()
{
    // A mark that begins like another one comes before it.
    static const std::vector<Encoding> all{
        {.name = "UTF-32LE", .cut = nowhere, .unit = 4, .mark = {"\xff\xfe\0\0", 4}},
        {.name = "UTF-32BE", .cut = nowhere, .unit = 4, .mark = {"\0\0\xfe\xff", 4}},
        {.name = "UTF-16LE", .cut = nowhere, .unit = 2, .mark = {"\xff\xfe", 2}},
        {.name = "UTF-16BE", .cut = nowhere, .unit = 2, .mark = {"\xfe\xff", 2}},
        {.name = "ISO-2022-JP-1", // which is ISO-2022-JP with the ideographs of JIS X 0212
         .isJapanese = true,
         .cut = nowhere,
         .escapes = {"\x1b$B", "\x1b$@", "\x1b$(D", "\x1b(J", "\x1b(I"},
         .otherNames = {"ISO-2022-JP"}},
        {.name = "windows-31j",
         .headStart = 40,
         .isJapanese = true,
         .otherNames = {"SHIFT_JIS"},
         .exchangesControls = true},
        {.name = "EUC-JP", .headStart = 40, .isJapanese = true},
        {.name = "GB18030"},
        {.name = "Big5"},
        {.name = "windows-949", .otherNames = {"EUC-KR", "UHC"}},
        {.name = "KOI8-R"},
        {.name = "KOI8-U", .headStart = -5},
        {.name = "windows-1251", .headStart = 5},
        {.name = "windows-1252", .headStart = 20},
        {.name = "windows-1250"},
        {.name = "windows-1253"},
        {.name = "windows-1254"},
        {.name = "windows-1255"},
        {.name = "windows-1256"},
        {.name = "windows-1257"},
        {.name = "ISO-8859-2", .headStart = -5},
        {.name = "ISO-8859-5", .headStart = -5},
        {.name = "ISO-8859-7", .headStart = -5},
        {.name = "ISO-8859-15", .headStart = -5},
        {.name = "IBM866", .headStart = -5},
    };
    return all;
}

const Encoding *encodingNamed(QByteArrayView name)
{
    const auto &all = encodings();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [name](const Encoding &encoding) { return name == encoding.name; });
    return found == all.end() ? nullptr : &*found;
}

bool Encoding::isNamed(QByteArrayView called) const
{
    return called.compare(name, Qt::CaseInsensitive) == 0
        || std::any_of(otherNames.begin(), otherNames.end(), [called](QByteArrayView other) {
               return called.compare(other, Qt::CaseInsensitive) == 0;
           });
}
