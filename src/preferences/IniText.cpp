#include "preferences/IniText.h"

#include <QStringDecoder>

#include <algorithm>
#include <cctype>
#include <string_view>

namespace {

bool isRemark(QByteArrayView line)
{
    return line.startsWith(';') || line.startsWith('#');
}

// Where the line ends that begins there: inside quotes, or behind a backslash, a line goes on. Nothing when
// its quotes are never closed.
std::optional<qsizetype> endOfLine(QByteArrayView text, qsizetype begin)
{
    const bool remark = isRemark(text.sliced(begin));
    bool quoted = false;
    qsizetype at = begin;
    for (; at < text.size() && (text[at] != '\n' || quoted); ++at) {
        if (!remark && text[at] == '"')
            quoted = !quoted;
        else if (!remark && text[at] == '\\')
            ++at;
    }
    return quoted ? std::nullopt : std::optional(std::min(at, text.size()));
}

bool isOctalDigit(char c)
{
    return c >= '0' && c <= '7';
}

qsizetype takeNumber(QByteArrayView raw, qsizetype at, int base, QString &text)
{
    qsizetype end = at;
    while (end < raw.size() && (base == 8 ? isOctalDigit(raw[end]) : std::isxdigit(uchar(raw[end])) != 0))
        ++end;
    text += QChar(char16_t(raw.sliced(at, end - at).toByteArray().toUInt(nullptr, base)));
    return end;
}

// Takes what stands behind a backslash, and says where that ends.
qsizetype takeEscaped(QByteArrayView raw, qsizetype at, QString &text)
{
    constexpr QByteArrayView letters("abfnrtv"), meanings("\a\b\f\n\r\t\v");
    if (at >= raw.size())
        return at;
    if (const qsizetype letter = letters.indexOf(raw[at]); letter >= 0)
        text += QLatin1Char(meanings[letter]);
    else if (raw[at] == 'x')
        return takeNumber(raw, at + 1, 16, text);
    else if (isOctalDigit(raw[at]))
        return takeNumber(raw, at, 8, text);
    else if (raw[at] != '\n')
        text += QLatin1Char(raw[at]);
    return at + 1;
}

// What is taken for a mark at the beginning of a text is a character here.
QString fromUtf8(QByteArrayView bytes)
{
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)(bytes);
}

QString withoutBlanks(QString text, qsizetype kept)
{
    while (text.size() > kept && text.back().isSpace())
        text.chop(1);
    return text;
}

std::optional<QString> decoded(QByteArrayView raw)
{
    QString text;
    qsizetype kept = 0; // of the text, blanks and all
    bool quoted = false;
    for (qsizetype at = 0; at < raw.size();) {
        if (raw[at] == '"' || raw[at] == '\\') {
            quoted = quoted != (raw[at] == '"');
            at = raw[at] == '"' ? at + 1 : takeEscaped(raw, at + 1, text);
            kept = text.size();
        } else if (!quoted && raw[at] == ',') {
            return std::nullopt; // a list
        } else if (!quoted && raw[at] == ';') {
            break; // a remark
        } else {
            const auto isMark = [](char c) {
                return std::string_view("\"\\,;").find(c) != std::string::npos;
            };
            const char *end = std::find_if(raw.begin() + at + 1, raw.end(), isMark);
            text += fromUtf8(raw.sliced(at, end - raw.begin() - at));
            at = end - raw.begin();
        }
    }
    return withoutBlanks(text, kept);
}

bool isHexDigit(QChar c)
{
    return c.unicode() < 0x80 && std::isxdigit(int(c.unicode())) != 0;
}

QByteArray encoded(const QString &value)
{
    QString text = value.startsWith(u'@') ? QStringLiteral("@") : QString();
    bool afterNumber = false; // where a digit would belong to it
    bool quoted = value.startsWith(u' ') || value.endsWith(u' ');
    for (const QChar c : value) {
        const bool asNumber =
            c < u' ' || c == u'\x7f' || c == QChar(QChar::ByteOrderMark) || (afterNumber && isHexDigit(c));
        if (asNumber)
            text += QStringLiteral("\\x") + QString::number(c.unicode(), 16);
        else if (c == u'"' || c == u'\\')
            text += u'\\', text += c;
        else
            text += c;
        quoted = quoted || c == u';' || c == u',' || c == u'=';
        afterNumber = asNumber;
    }
    return (quoted ? u'"' + text + u'"' : text).toUtf8();
}

} // namespace

std::optional<IniText> IniText::parsed(const QByteArray &text)
{
    IniText ini;
    bool inGroup = false;
    for (qsizetype at = text.startsWith("\xef\xbb\xbf") ? 3 : 0; at < text.size();) {
        const auto end = endOfLine(text, at);
        if (!end)
            return std::nullopt;
        const QByteArray whole = text.sliced(at, *end - at), line = whole.trimmed();
        const qsizetype equals = line.indexOf('=');
        at = *end + 1;
        if (line.isEmpty() || isRemark(line)) {
            ini.m_lines += {whole};
        } else if (line.startsWith('[') && line.contains(']')) {
            inGroup = line.first(line.indexOf(']')).sliced(1).trimmed().toLower() != "general";
            ini.m_lines += {whole};
        } else if (equals > 0 && !line.contains('\0')) {
            ini.m_lines += {whole, inGroup ? QByteArray() : line.first(equals).trimmed(),
                            line.sliced(equals + 1).trimmed()};
        } else {
            return std::nullopt;
        }
    }
    return ini;
}

std::optional<QString> IniText::value(QLatin1StringView key) const
{
    const auto isKey = [key = QByteArrayView(key)](const Line &line) { return line.key == key; };
    const auto found = std::find_if(m_lines.rbegin(), m_lines.rend(), isKey); // the last one counts
    if (found == m_lines.rend())
        return std::nullopt;
    auto text = decoded(found->value);
    if (!text || !text->startsWith(u'@'))
        return text;
    return text->startsWith(QLatin1StringView("@@")) ? std::optional(text->sliced(1)) : std::nullopt;
}

void IniText::setValue(const QString &value, QLatin1StringView key)
{
    Line line{{}, QByteArray(key.data(), key.size()), encoded(value)};
    line.text = line.key + '=' + line.value;
    const auto isKey = [&line](const Line &other) { return other.key == line.key; };
    const auto hasKey = [](const Line &other) { return !other.key.isEmpty(); };
    const auto last = std::find_if(m_lines.rbegin(), m_lines.rend(), isKey);
    if (last != m_lines.rend()) {
        *last = line;
        return;
    }
    qsizetype place = m_lines.rend() - std::find_if(m_lines.rbegin(), m_lines.rend(), hasKey);
    if (place == 0)
        m_lines.insert(place++, {"[General]"});
    m_lines.insert(place, line);
}

QByteArray IniText::bytes() const
{
    QByteArray text;
    for (const Line &line : m_lines)
        text += line.text + '\n';
    return text;
}
