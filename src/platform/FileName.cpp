#include "platform/FileName.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <algorithm>

namespace {

constexpr char16_t firstByteMark = 0xdc00; // plus the byte, 0x80 to 0xff

// All of it: what stands at the beginning of a text as a mark is a character of a name.
QString fromUtf8(QByteArrayView bytes)
{
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(bytes);
}

// The bytes of the UTF-8 character at the beginning; 0 when there is none.
qsizetype characterLength(QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= std::min<qsizetype>(4, bytes.size()); ++length) {
        if (bytes.first(length).isValidUtf8())
            return length;
    }
    return 0;
}

QString textByCharacters(QByteArrayView rest)
{
    QString text;
    while (!rest.isEmpty()) {
        const qsizetype length = characterLength(rest);
        if (length > 0)
            text += fromUtf8(rest.first(length));
        else
            text += QChar(char16_t(firstByteMark + uchar(rest.front())));
        rest = rest.sliced(std::max<qsizetype>(length, 1));
    }
    return text;
}

bool isByteMark(QChar unit)
{
    return unit.unicode() >= firstByteMark + 0x80 && unit.unicode() <= firstByteMark + 0xff;
}

} // namespace

QString FileName::text(const std::string &name)
{
    const QByteArrayView bytes(name.data(), qsizetype(name.size()));
    return bytes.isValidUtf8() ? fromUtf8(bytes) : textByCharacters(bytes);
}

std::string FileName::bytes(const QString &text)
{
    std::string bytes;
    qsizetype done = 0;
    const auto takeUntil = [&](qsizetype end) {
        bytes += QStringView(text).sliced(done, end - done).toUtf8().toStdString();
        done = end;
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isByteMark(text[i]) || (i > 0 && text[i - 1].isHighSurrogate()))
            continue;
        takeUntil(i);
        bytes += char(text[i].unicode() - firstByteMark);
        ++done;
    }
    takeUntil(text.size());
    return bytes;
}
