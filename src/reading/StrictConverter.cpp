#include "reading/StrictConverter.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <future>
#include <memory>

namespace {

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

bool isJapanesePc(const char *encoding)
{
    return qstrcmp(encoding, "windows-31j") == 0;
}

// The converter's table exchanges three control characters, as the hosts of its origin did.
void putControlsBack(QString &text)
{
    const auto meant = [](char16_t c) {
        return c == u'\x1a' ? u'\x7f' : c == u'\x1c' ? u'\x1a' : c == u'\x7f' ? u'\x1c' : c;
    };
    for (QChar &c : text)
        c = QChar(meant(c.unicode()));
}

// Up to the first byte that has no meaning; `whole` says that after the last one nothing follows.
StrictConverter::Beginning convert(QByteArrayView bytes, const char *encoding, bool whole)
{
    const Converter converter = strictConverter(encoding);
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
            if (isJapanesePc(encoding))
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

// No early end: so the compiler has many characters looked at at once.
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

// A text without any addition is taken at the standard's word: a wave dash, not a full-width tilde.
void nameAsTheStandardDoes(QString &text)
{
    if (holdsVendorCharacters(text))
        return;
    for (const Names &names : twoNames)
        text.replace(QChar(names.vendors), QChar(names.standards));
}

bool isJapanese(const char *encoding)
{
    return isJapanesePc(encoding) || qstrcmp(encoding, "EUC-JP") == 0
        || qstrcmp(encoding, "ISO-2022-JP") == 0;
}

// Where a large text may be cut in two that are decoded at the same time; its end if nowhere. Such a byte
// is a character of its own whatever stands around it, unless what it means depends on all that went
// before.
qsizetype middle(QByteArrayView bytes, const char *encoding)
{
    constexpr qsizetype large = 1 << 20;
    if (bytes.size() < large || qstrcmp(encoding, "ISO-2022-JP") == 0 || qstrncmp(encoding, "UTF-", 4) == 0)
        return bytes.size();
    const auto *cut =
        std::find_if(bytes.begin() + bytes.size() / 2, bytes.end(), [](char c) { return uchar(c) < 0x30; });
    return cut - bytes.begin();
}

} // namespace

std::optional<QString> StrictConverter::decoded(QByteArrayView bytes, const char *encoding)
{
    const qsizetype half = middle(bytes, encoding);
    const auto rest = bytes.sliced(half);
    auto later = std::async(rest.isEmpty() ? std::launch::deferred : std::launch::async,
                            [rest, encoding] { return convert(rest, encoding, true); });
    Beginning first = convert(bytes.first(half), encoding, true);
    const Beginning second = later.get();
    if (first.bytes != half || second.bytes != rest.size())
        return std::nullopt;
    first.text += second.text;
    if (isJapanese(encoding))
        nameAsTheStandardDoes(first.text);
    return std::move(first.text);
}

StrictConverter::Beginning StrictConverter::decodedBeginning(QByteArrayView bytes, const char *encoding)
{
    return convert(bytes, encoding, false);
}
