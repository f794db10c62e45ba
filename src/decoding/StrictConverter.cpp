#include "decoding/StrictConverter.h"

#include "decoding/BothAtOnce.h"
#include "decoding/LargeText.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

using StrictConverter::Beginning;

struct Close {
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Close>;

Converter strictConverter(const char *encoding)
{
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(encoding, &error));
    if (converter)
        ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    if (U_FAILURE(error))
        converter.reset();
    return converter;
}

void putControlsBack(QString &text)
{
    const auto meant = [](char16_t c) {
        return c == u'\x1a' ? u'\x7f' : c == u'\x1c' ? u'\x1a' : c == u'\x7f' ? u'\x1c' : c;
    };
    for (QChar &c : text)
        c = QChar(meant(c.unicode()));
}

// Up to the first byte that has no meaning; `whole` says that nothing follows after the last one.
Beginning convert(QByteArrayView bytes, const Encoding &encoding, bool whole)
{
    const Converter converter = strictConverter(encoding.name);
    if (!converter)
        return {};
    QString text;
    text.resize(bytes.size() / 2 + 64);
    const char *from = bytes.data();
    qsizetype used = 0;
    for (;;) {
        auto *begin = reinterpret_cast<char16_t *>(text.data());
        char16_t *to = begin + used;
        UErrorCode error = U_ZERO_ERROR;
        ucnv_toUnicode(converter.get(), &to, begin + text.size(), &from, bytes.data() + bytes.size(),
                       nullptr, UBool(whole ? 1 : 0), &error);
        used = to - begin;
        if (error != U_BUFFER_OVERFLOW_ERROR) {
            text.resize(used);
            if (encoding.exchangesControls)
                putControlsBack(text);
            const bool missed = U_FAILURE(error) && from == bytes.data() + bytes.size();
            return {text, from - bytes.data() - (missed ? 1 : 0)};
        }
        // At the present rate, and a little more.
        const double done = double(from - bytes.data()) / double(bytes.size());
        text.resize(std::max(qsizetype(double(used) / std::max(done, 0.01)), used) + used / 64 + 64);
    }
}

// A vendor's additions to JIS X 0208: circled numbers, unit signs, and ideographs beyond the standard.
bool isVendorCharacter(char16_t c)
{
    return (c >= 0x2160 && c <= 0x217f) || (c >= 0x2460 && c <= 0x2473) || (c >= 0x3200 && c <= 0x33ff)
        || (c >= 0xf900 && c <= 0xfaff) || c == u'髙' || c == u'№' || c == u'℡';
}

// Without an early end, so that the compiler looks at many characters at a time.
bool holdsVendorCharacters(QStringView text)
{
    bool holds = false;
    for (const QChar c : text)
        holds |= isVendorCharacter(c.unicode());
    return holds;
}

// Some characters have two names in Unicode: the standard's, and the one of the vendor whose
// additions these encodings may hold as well.
struct Names {
    char16_t vendors, standards;
};
constexpr std::array twoNames{
    Names{u'～', u'\u301c'}, Names{u'－', u'\u2212'}, Names{u'∥', u'\u2016'},
    Names{u'￠', u'\u00a2'}, Names{u'￡', u'\u00a3'}, Names{u'￢', u'\u00ac'},
};

// In pieces that the processor keeps near, since it looks at each several times.
bool rename(QChar *text, qsizetype size)
{
    constexpr qsizetype nearby = 32 << 10;
    for (qsizetype from = 0; from < size; from += nearby) {
        const QStringView piece(text + from, std::min(nearby, size - from));
        for (const Names &names : twoNames) {
            for (qsizetype at = piece.indexOf(names.vendors); at >= 0;
                 at = piece.indexOf(names.vendors, at + 1))
                text[from + at] = names.standards;
        }
    }
    return true;
}

// A text without any addition is taken at the standard's word: a wave dash, not a full-width tilde.
void nameAsTheStandardDoes(TextParts &text)
{
    if (holdsVendorCharacters(text.first) || holdsVendorCharacters(text.second))
        return;
    const auto renamed = [](QString &part) { return [&part] { return rename(part.data(), part.size()); }; };
    bothAtOnce(renamed(text.second), renamed(text.first));
}

// Where a large text may be cut in two that are decoded at the same time; its end if nowhere.
qsizetype middle(QByteArrayView bytes, const Encoding &encoding)
{
    if (bytes.size() < LargeText::bytes || !encoding.mayBeCut())
        return bytes.size();
    return std::find_if(bytes.begin() + bytes.size() / 2, bytes.end(), isCut) - bytes.begin();
}

// Nothing unless all the bytes are accounted for.
std::optional<QString> convertAll(QByteArrayView bytes, const Encoding &encoding)
{
    Beginning read = convert(bytes, encoding, true);
    return read.bytes == bytes.size() ? std::optional(std::move(read.text)) : std::nullopt;
}

} // namespace

std::optional<TextParts> StrictConverter::decoded(QByteArrayView bytes, const Encoding &encoding)
{
    const qsizetype half = middle(bytes, encoding);
    auto [later, first] = half < bytes.size()
        ? bothAtOnce([=, &encoding] { return convertAll(bytes.sliced(half), encoding); },
                     [=, &encoding] { return convertAll(bytes.first(half), encoding); })
        : std::pair(std::optional(QString()), convertAll(bytes, encoding));
    if (!first || !later)
        return std::nullopt;
    TextParts parts{*std::move(first), *std::move(later)};
    if (encoding.isJapanese)
        nameAsTheStandardDoes(parts);
    return parts;
}

StrictConverter::Beginning StrictConverter::decodedBeginning(QByteArrayView bytes, const Encoding &encoding)
{
    return convert(bytes, encoding, false);
}
