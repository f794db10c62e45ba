#include "document/Folding.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>

#include <array>
#include <atomic>
#include <memory>
#include <numeric>
#include <utility>

namespace {

// Stands in the table for what isn't another character by itself.
constexpr char16_t irregular = 0xffff;

const UNormalizer2 *folder()
{
    UErrorCode error = U_ZERO_ERROR;
    return unorm2_getNFKCCasefoldInstance(&error);
}

const UNormalizer2 *composer()
{
    UErrorCode error = U_ZERO_ERROR;
    return unorm2_getNFCInstance(&error);
}

// What Unicode keeps apart.
char16_t alike(char16_t c)
{
    if ((c >= u'ァ' && c <= u'ヶ') || c == u'ヽ' || c == u'ヾ')
        return char16_t(c - (u'ァ' - u'ぁ'));
    return c == u'\u301c' ? u'~' : c == u'\u2212' ? u'-' : c;
}

bool isMark(char32_t c)
{
    return u_getCombiningClass(UChar32(c)) != 0;
}

QString foldedCharacter(char32_t character)
{
    const QString text = QString::fromUcs4(&character, 1);
    std::array<char16_t, 32> units{};
    UErrorCode error = U_ZERO_ERROR;
    const int32_t size =
        unorm2_normalize(folder(), text.utf16() ? reinterpret_cast<const UChar *>(text.utf16()) : nullptr,
                         int32_t(text.size()), units.data(), int32_t(units.size()), &error);
    return U_SUCCESS(error) ? QString::fromUtf16(units.data(), size) : text;
}

char16_t regularFold(char16_t c)
{
    if (QChar::isSurrogate(c) || isMark(c))
        return irregular;
    const QString text = foldedCharacter(c);
    return text.size() == 1 && !isMark(text[0].unicode()) ? alike(text[0].unicode()) : irregular;
}

// What each character of the basic plane becomes; a page of it is made when it is first needed, by
// whichever thread.
class Table {
public:
    char16_t operator[](char16_t c)
    {
        const Page *page = m_pages[c >> 8].load(std::memory_order_acquire);
        return (page ? *page : made(c >> 8))[c & 0xff];
    }

private:
    using Page = std::array<char16_t, 256>;

    const Page &made(int number)
    {
        auto page = std::make_unique<Page>();
        for (int i = 0; i < 256; ++i)
            (*page)[size_t(i)] = regularFold(char16_t(number << 8 | i));
        const Page *before = nullptr;
        if (m_pages[size_t(number)].compare_exchange_strong(before, page.get()))
            return *page.release(); // kept for good
        return *before;
    }

    std::array<std::atomic<const Page *>, 256> m_pages{};
};

Table &table()
{
    static Table made;
    return made;
}

class Fold {
public:
    explicit Fold(QStringView text)
        : m_text(text)
    {
        m_folded.text.reserve(text.size());
    }

    Folded done()
    {
        Table &regular = table();
        for (m_at = 0; m_at < m_text.size();) {
            const char16_t c = regular[m_text[m_at].unicode()];
            if (c == irregular)
                addIrregular();
            else
                add(c), ++m_at;
        }
        if (m_isMoved)
            m_folded.origins.push_back(int(m_text.size()));
        return std::move(m_folded);
    }

private:
    void add(char16_t c)
    {
        m_folded.text += QChar(c);
        if (m_isMoved)
            m_folded.origins.push_back(int(m_at));
    }

    void addIrregular()
    {
        if (!std::exchange(m_isMoved, true)) {
            m_folded.origins.reserve(size_t(m_text.size()));
            m_folded.origins.resize(size_t(m_folded.text.size()));
            std::iota(m_folded.origins.begin(), m_folded.origins.end(), 0);
            m_folded.origins.reserve(size_t(m_text.size()) + 1);
        }
        const bool isPair =
            m_text[m_at].isHighSurrogate() && m_at + 1 < m_text.size() && m_text[m_at + 1].isLowSurrogate();
        const char32_t character = isPair ? QChar::surrogateToUcs4(m_text[m_at], m_text[m_at + 1])
                                          : char32_t(m_text[m_at].unicode());
        for (const QChar c : foldedCharacter(character)) {
            if (!isMark(c.unicode()) || !joinsLast(c.unicode()))
                add(alike(c.unicode()));
        }
        m_at += isPair ? 2 : 1;
    }

    bool joinsLast(char16_t mark)
    {
        if (m_folded.text.isEmpty())
            return false;
        const UChar32 whole = unorm2_composePair(composer(), m_folded.text.back().unicode(), mark);
        if (whole <= 0 || whole > 0xffff)
            return false;
        m_folded.text.back() = QChar(char16_t(whole));
        return true;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    bool m_isMoved = false; // characters aren't where they were: their origins are written down
    Folded m_folded;
};

} // namespace

Folded folded(QStringView text)
{
    return Fold(text).done();
}
