#include "pdf/PdfSyntax.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace PdfSyntax {

void appendNumber(std::string &to, double value, int digits)
{
    constexpr long long powers[] = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000};
    const long long one = powers[digits];
    const long long parts = std::llround(value * double(one));
    if (parts < 0)
        to += '-';
    char whole[32];
    to.append(whole, std::to_chars(whole, whole + sizeof whole, std::llabs(parts) / one).ptr);
    long long rest = std::llabs(parts) % one;
    if (rest == 0)
        return;
    to += '.';
    for (long long unit = one / 10; rest > 0; rest %= unit, unit /= 10)
        to += char('0' + rest / unit);
}

std::string number(double value, int digits)
{
    std::string text;
    appendNumber(text, value, digits);
    return text;
}

std::string reference(int object)
{
    return std::to_string(object) + " 0 R";
}

void appendHex(std::string &to, unsigned value, int digits)
{
    while (digits-- > 0)
        to += "0123456789ABCDEF"[(value >> (4 * digits)) & 15];
}

std::string text(std::string_view utf8)
{
    const bool isPlain = std::all_of(utf8.begin(), utf8.end(), [](char c) { return c >= ' ' && c <= '~'; });
    if (isPlain)
        return string(utf8);
    const auto units = icu::UnicodeString::fromUTF8({utf8.data(), std::int32_t(utf8.size())});
    std::string written = "<FEFF";
    for (std::int32_t i = 0; i < units.length(); ++i)
        appendHex(written, units[i], 4);
    return written + '>';
}

std::string string(std::string_view bytes)
{
    std::string written = "(";
    for (const char c : bytes) {
        if (c == '(' || c == ')' || c == '\\')
            written += '\\';
        if (c == '\r')
            written += "\\r";
        else
            written += c;
    }
    return written + ')';
}

} // namespace PdfSyntax
