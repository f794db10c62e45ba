#include "decoding/PlainUtf8.h"

#include "decoding/BothAtOnce.h"
#include "decoding/LargeText.h"
#include "decoding/Utf8.h"

#include <algorithm>

namespace {

// In pieces that the processor keeps near, since it looks at each several times.
Findings lookedThrough(QByteArrayView bytes)
{
    constexpr qsizetype nearby = 128 << 10;
    Findings found;
    while (found.isValidUtf8 && !bytes.isEmpty()) {
        const auto piece = bytes.first(characterStart(bytes, std::min(bytes.size(), nearby)));
        found.isValidUtf8 = !piece.isEmpty() && isValidUtf8(piece);
        found.hasZeros = found.hasZeros || piece.contains('\0');
        found.hasEscapes = found.hasEscapes || piece.contains('\x1b');
        bytes = bytes.sliced(piece.size());
    }
    return found;
}

} // namespace

Findings findings(QByteArrayView bytes)
{
    if (bytes.size() <= LargeText::bytes)
        return lookedThrough(bytes);
    const qsizetype half = characterStart(bytes, bytes.size() / 2);
    const auto [later, first] = bothAtOnce([=] { return lookedThrough(bytes.sliced(half)); },
                                           [=] { return lookedThrough(bytes.first(half)); });
    return {.isValidUtf8 = first.isValidUtf8 && later.isValidUtf8,
            .hasZeros = first.hasZeros || later.hasZeros,
            .hasEscapes = first.hasEscapes || later.hasEscapes};
}

const Encoding *markedEncoding(QByteArrayView bytes)
{
    const auto &all = encodings();
    const auto found = std::find_if(all.begin(), all.end(), [bytes](const Encoding &encoding) {
        return !encoding.mark.isEmpty() && bytes.startsWith(encoding.mark);
    });
    return found == all.end() ? nullptr : &*found;
}

// A terminal's colours are escape sequences, too, but others.
const Encoding *escapingEncoding(QByteArrayView bytes)
{
    for (auto at = bytes.indexOf('\x1b'); at >= 0; at = bytes.indexOf('\x1b', at + 1)) {
        for (const Encoding &encoding : encodings()) {
            for (const QByteArrayView escape : encoding.escapes) {
                if (bytes.sliced(at).startsWith(escape))
                    return &encoding;
            }
        }
    }
    return nullptr;
}

bool isPlainUtf8(QByteArrayView bytes)
{
    if (markedEncoding(bytes))
        return false;
    const Findings found = findings(bytes);
    return found.isUtf8ForSure() || (found.isValidUtf8 && !found.hasZeros && !escapingEncoding(bytes));
}
