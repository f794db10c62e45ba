#include "decoding/Utf8.h"

#include <QtEndian>

namespace {

// Eight bytes as one number, the first lowest.
quint64 eight(const uchar *at)
{
    return qFromLittleEndian<quint64>(at);
}

const uchar *pastAscii(const uchar *at, const uchar *end)
{
    while (end - at >= 16 && ((eight(at) | eight(at + 8)) & 0x8080808080808080) == 0)
        at += 16;
    return at;
}

// Two characters of three bytes each, which Japanese is made of. What begins with E0 or ED is left to
// the one who looks closely: not everything that is shaped like them is valid.
const uchar *pastPairs(const uchar *at, const uchar *end)
{
    const auto needsCare = [](quint64 lead) { return lead == 0x0 || lead == 0xd; };
    while (end - at >= 8) {
        const quint64 bytes = eight(at);
        if ((bytes & 0xc0c0f0c0c0f0) != 0x8080e08080e0 || needsCare(bytes & 0xf)
            || needsCare(bytes >> 24 & 0xf))
            break;
        at += 6;
    }
    return at;
}

// The length of the character that begins there, 0 if none does.
qsizetype validLength(const uchar *at, const uchar *end)
{
    const uchar lead = *at;
    if (lead < 0x80)
        return 1;
    const qsizetype length = lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
    if (lead < 0xc2 || lead > 0xf4 || end - at < length)
        return 0;
    // Else it would be longer than it needs to be, half a surrogate pair, or past the last character.
    const uchar least = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
    const uchar most = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;
    if (at[1] < least || at[1] > most)
        return 0;
    for (qsizetype i = 2; i < length; ++i) {
        if ((at[i] & 0xc0) != 0x80)
            return 0;
    }
    return length;
}

} // namespace

bool isValidUtf8(QByteArrayView bytes)
{
    const auto *at = reinterpret_cast<const uchar *>(bytes.data());
    const uchar *end = at + bytes.size();
    while (at < end) {
        at = pastPairs(pastAscii(at, end), end);
        if (at == end)
            break;
        const qsizetype length = validLength(at, end);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

qsizetype characterStart(QByteArrayView utf8, qsizetype place)
{
    while (place > 0 && place < utf8.size() && (uchar(utf8[place]) & 0xc0) == 0x80)
        --place;
    return place;
}
