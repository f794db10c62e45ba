#include "typesetting/Addresses.h"

#include <algorithm>

namespace {

constexpr std::size_t longest = 2000; // that everybody can follow
constexpr std::u16string_view marks = u"-._~:/?#[]@!$&'()*+,;=%";
constexpr std::u16string_view endsOfSentences = u".,:;!?'*_~";

bool isAlphanumeric(char16_t c)
{
    return (c >= u'0' && c <= u'9') || ((c | 0x20) >= u'a' && (c | 0x20) <= u'z');
}

bool isInAddress(char16_t c)
{
    return isAlphanumeric(c) || marks.find(c) != marks.npos;
}

bool isInMailName(char16_t c)
{
    return isAlphanumeric(c) || c == u'.' || c == u'-' || c == u'_' || c == u'+';
}

bool isInHost(char16_t c)
{
    return isAlphanumeric(c) || c == u'.' || c == u'-';
}

template <class Is> std::size_t endOf(std::u16string_view text, std::size_t from, Is is)
{
    const std::size_t most = std::min(text.size(), from + longest + 1);
    while (from < most && is(text[from]))
        ++from;
    return from;
}

/// How many brackets of a kind are closed that weren't opened.
class Brackets {
public:
    Brackets(std::u16string_view text, char16_t open, char16_t close)
        : m_close(close)
        , m_surplus(std::count(text.begin(), text.end(), close)
                    - std::count(text.begin(), text.end(), open))
    {
    }

    /// Takes the last character, if it closes one of them.
    bool take(char16_t last) { return last == m_close && m_surplus-- > 0; }

private:
    char16_t m_close;
    std::ptrdiff_t m_surplus;
};

// Brackets that were opened before it, and what ends the sentence.
std::size_t withoutWhatIsAround(std::u16string_view address)
{
    Brackets round(address, u'(', u')');
    Brackets square(address, u'[', u']');
    while (!address.empty()) {
        const char16_t last = address.back();
        if (!round.take(last) && !square.take(last) && endsOfSentences.find(last) == endsOfSentences.npos)
            break;
        address.remove_suffix(1);
    }
    return address.size();
}

std::string ascii(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

// Around the colon of "://", which stands at `colon`; `from` is where it may begin. Without a target, it is
// too long, and there is none in all of that.
std::optional<Address> webAddress(std::u16string_view text, std::size_t colon, std::size_t from)
{
    for (const std::u16string_view scheme : {u"https", u"http"}) {
        if (colon < from + scheme.size() || text.substr(colon, 3) != u"://")
            continue;
        const std::size_t begin = colon - scheme.size();
        if (text.substr(begin, scheme.size()) != scheme
            || (begin > from && isAlphanumeric(text[begin - 1])))
            continue;
        const std::size_t end = endOf(text, colon + 3, isInAddress);
        const auto whole = text.substr(begin, end - begin);
        const std::size_t length = withoutWhatIsAround(whole);
        const bool hasHost = length > scheme.size() + 3 && isAlphanumeric(text[colon + 3]);
        if (length > longest)
            return Address{begin, length, {}, 0};
        if (hasHost)
            return Address{begin, length, ascii(whole.substr(0, length)), 0};
    }
    return {};
}

std::optional<Address> mailAddress(std::u16string_view text, std::size_t at, std::size_t from)
{
    constexpr std::size_t longestName = 64; // as mail has it
    std::size_t begin = at;
    while (begin > from && at - begin <= longestName && isInMailName(text[begin - 1]))
        --begin;
    const std::size_t end = endOf(text, at + 1, isInHost);
    const std::size_t length = withoutWhatIsAround(text.substr(begin, end - begin));
    const auto host = length > at - begin ? text.substr(at + 1, begin + length - at - 1) : u"";
    const std::size_t dot = host.rfind(u'.');
    const bool hasName = at > begin && at - begin <= longestName && isAlphanumeric(text[begin]);
    const bool hasHost = dot != host.npos && dot > 0 && host.size() - dot > 2 && host.size() < 256;
    if (!hasName || !hasHost || !isAlphanumeric(host.front()))
        return {};
    return Address{begin, length, "mailto:" + ascii(text.substr(begin, length)), 0};
}

} // namespace

void Addresses::setParagraph(std::u16string_view text)
{
    m_text = text;
    m_at = m_from = 0;
    m_found.clear();
}

const std::deque<Address> &Addresses::inLine(std::size_t begin, std::size_t end)
{
    constexpr std::size_t ahead = 100; // what tells an address stands within it
    while (!m_found.empty() && m_found.front().end() <= begin)
        m_found.pop_front();
    for (; m_at < std::min(m_text.size(), end + ahead); ++m_at) {
        std::optional<Address> found;
        if (m_text[m_at] == u':')
            found = webAddress(m_text, m_at, m_from);
        else if (m_text[m_at] == u'@')
            found = mailAddress(m_text, m_at, m_from);
        if (!found)
            continue;
        m_from = found->end();
        m_at = m_from - 1;
        if (found->target.empty())
            continue;
        found->number = ++m_last;
        m_found.push_back(*std::move(found));
    }
    return m_found;
}
