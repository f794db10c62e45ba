#include "reading/StrictConverter.h"

#include <unicode/ucnv.h>

#include <algorithm>
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
    for (QChar &c : text) {
        if (c == u'\x1a')
            c = u'\x7f';
        else if (c == u'\x1c')
            c = u'\x1a';
        else if (c == u'\x7f')
            c = u'\x1c';
    }
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
bool isVendorCharacter(QChar c)
{
    const char16_t u = c.unicode();
    return (u >= 0x2160 && u <= 0x217f) || (u >= 0x2460 && u <= 0x2473) || (u >= 0x3200 && u <= 0x33ff)
        || (u >= 0xf900 && u <= 0xfaff) || u == u'髙' || u == u'№' || u == u'℡';
}

// Seven characters have two names in Unicode: the standard's, and the one of the vendor whose
// additions these encodings may hold as well. A text without any addition is taken at the standard's
// word: a wave dash, not a full-width tilde.
void nameAsTheStandardDoes(QString &text)
{
    if (std::any_of(text.begin(), text.end(), isVendorCharacter))
        return;
    for (QChar &c : text) {
        switch (c.unicode()) {
        case u'～':
            c = u'\u301c';
            break;
        case u'－':
            c = u'\u2212';
            break;
        case u'∥':
            c = u'\u2016';
            break;
        case u'￠':
            c = u'\u00a2';
            break;
        case u'￡':
            c = u'\u00a3';
            break;
        case u'￢':
            c = u'\u00ac';
            break;
        default:
            break;
        }
    }
}

bool isJapanese(const char *encoding)
{
    return isJapanesePc(encoding) || qstrcmp(encoding, "EUC-JP") == 0
        || qstrcmp(encoding, "ISO-2022-JP") == 0;
}

} // namespace

std::optional<QString> StrictConverter::decoded(QByteArrayView bytes, const char *encoding)
{
    Beginning all = convert(bytes, encoding, true);
    if (all.bytes != bytes.size())
        return std::nullopt;
    if (isJapanese(encoding))
        nameAsTheStandardDoes(all.text);
    return std::move(all.text);
}

StrictConverter::Beginning StrictConverter::decodedBeginning(QByteArrayView bytes, const char *encoding)
{
    return convert(bytes, encoding, false);
}
