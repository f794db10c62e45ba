#include "decoding/EncodingGuess.h"

#include "decoding/BothAtOnce.h"
#include "decoding/Plausibility.h"
#include "decoding/StrictConverter.h"

#include <uchardet/uchardet.h>

#include <algorithm>

namespace {

constexpr double uchardetsWord = 30;
// On average a character of a text that means something costs less, and noise costs more.
constexpr double dearest = 98;
// When the likeliest encoding fails, what is this much dearer isn't right but the text is damaged.
constexpr double nearlyAsLikely = 1.1;
// What is this much dearer at the beginning won't win.
constexpr double hopeless = 1.6;

constexpr qsizetype firstTaste = 4 << 10, firstSample = 32 << 10, laterSample = 4 << 10;
constexpr int laterSamples = 4;

// Without the beginning and the end, which may be parts of characters.
QByteArrayView betweenCuts(QByteArrayView piece)
{
    const auto *first = std::find_if(piece.begin(), piece.end(), isCut);
    const auto last =
        std::find_if(std::make_reverse_iterator(piece.end()), std::make_reverse_iterator(first), isCut);
    return {first, last.base()};
}

// From where the first byte stands that is not ASCII, which begins a character, and a few more places.
QByteArray sampleOf(QByteArrayView bytes)
{
    const auto *first = std::find_if(bytes.begin(), bytes.end(), [](char c) { return uchar(c) >= 0x80; });
    const qsizetype start = std::max<qsizetype>(0, first - bytes.begin() - 64);
    const QByteArrayView rest = bytes.sliced(start);
    if (rest.size() <= firstSample)
        return rest.toByteArray();
    const QByteArrayView beginning = rest.first(firstSample);
    const auto *end = betweenCuts(beginning).end();
    QByteArray sample(beginning.data(), end == beginning.begin() ? firstSample : end - beginning.begin());
    if (sample.size() == firstSample)
        return sample;
    for (int i = 1; i <= laterSamples; ++i) {
        const qsizetype from = (rest.size() - laterSample) / laterSamples * i;
        if (from >= firstSample)
            sample += betweenCuts(rest.sliced(from, laterSample));
    }
    return sample;
}

QByteArray wordOfUchardet(const QByteArray &sample)
{
    uchardet_t detector = uchardet_new();
    uchardet_handle_data(detector, sample.data(), size_t(sample.size()));
    uchardet_data_end(detector);
    QByteArray name = uchardet_get_charset(detector);
    uchardet_delete(detector);
    return name;
}

struct Finding {
    const Encoding *encoding; // none: it is a damaged text in UTF-8
    double dearness;          // of a byte
};

class Search {
public:
    explicit Search(const Plausibility &plausibility)
        : m_plausibility(plausibility)
    {
    }

    // What fails late in an otherwise plausible text stays in the race: if it wins, the text is damaged.
    void consider(const Encoding &encoding, const QByteArray &sample, double bonus = 0)
    {
        const auto beginning = StrictConverter::decodedBeginning(sample, encoding);
        const bool fails = beginning.bytes < sample.size();
        if (beginning.bytes == 0 || (fails && beginning.bytes < sample.size() / 4 * 3))
            return;
        add(&encoding, beginning.text, beginning.bytes, encoding.headStart + bonus, fails ? 20 : 0);
    }

    // Every other one on another thread. `word`: the name of one for which there is an argument more.
    void considerAll(const std::vector<const Encoding *> &all, const QByteArray &sample,
                     QByteArrayView word)
    {
        const auto from = [&](std::size_t first) {
            return [&, first] {
                Search some(m_plausibility);
                for (std::size_t i = first; i < all.size(); i += 2)
                    some.consider(*all[i], sample, all[i]->isNamed(word) ? uchardetsWord : 0);
                return some.m_findings;
            };
        };
        for (const auto &[odd, even] = bothAtOnce(from(1), from(0)); const auto &found : {even, odd})
            m_findings.insert(m_findings.end(), found.begin(), found.end());
    }

    // A text in UTF-8 that somebody has damaged makes sense in no other encoding.
    void considerDamagedUtf8(const QByteArray &sample)
    {
        add(nullptr, QString::fromUtf8(sample), sample.size(), 40, 1);
    }

    bool found(const Encoding &encoding) const
    {
        return std::any_of(m_findings.begin(), m_findings.end(),
                           [&](const Finding &finding) { return finding.encoding == &encoding; });
    }

    // Those that aren't much dearer than the cheapest, which comes first.
    std::vector<const Encoding *> ranking(double farthest = nearlyAsLikely)
    {
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const Finding &a, const Finding &b) { return a.dearness < b.dearness; });
        std::vector<const Encoding *> near;
        for (const Finding &finding : m_findings) {
            if (finding.dearness <= farthest * m_findings.front().dearness)
                near.push_back(finding.encoding);
        }
        return near;
    }

private:
    void add(const Encoding *encoding, QStringView text, qsizetype bytes, double worth,
             qsizetype leastForeigners)
    {
        const auto cost = m_plausibility.cost(text);
        if (!cost.isText || cost.foreign > dearest || cost.foreigners < leastForeigners)
            return;
        m_findings.push_back({encoding, (cost.whole - worth) / double(bytes)});
    }

    const Plausibility &m_plausibility;
    std::vector<Finding> m_findings;
};

// A taste tells which ones need not be tried on the whole sample.
std::vector<const Encoding *> hopefulOnes(const std::vector<const Encoding *> &all,
                                          const QByteArray &sample, const Plausibility &plausibility)
{
    if (sample.size() < 2 * firstTaste)
        return all;
    const QByteArray taste = betweenCuts(QByteArrayView(sample).first(firstTaste)).toByteArray();
    Search search(plausibility);
    search.considerAll(all, taste, {});
    const auto near = search.ranking(hopeless);
    std::vector<const Encoding *> hopeful;
    std::copy_if(all.begin(), all.end(), std::back_inserter(hopeful), [&](const Encoding *encoding) {
        return !search.found(*encoding) || std::find(near.begin(), near.end(), encoding) != near.end();
    });
    return hopeful;
}

// Those that a sample made of several pieces tells something of.
std::vector<const Encoding *> narrowOnes()
{
    std::vector<const Encoding *> narrow;
    for (const Encoding &encoding : encodings()) {
        if (encoding.mayBeCut())
            narrow.push_back(&encoding);
    }
    return narrow;
}

void considerNarrowOnes(Search &search, QByteArrayView bytes, const Plausibility &plausibility)
{
    const QByteArray sample = sampleOf(bytes);
    search.considerDamagedUtf8(sample);
    const QByteArray word = wordOfUchardet(sample);
    search.considerAll(hopefulOnes(narrowOnes(), sample, plausibility), sample, word);
}

} // namespace

std::vector<const Encoding *> plausibleEncodings(QByteArrayView bytes)
{
    const Plausibility plausibility;
    Search search(plausibility);
    const QByteArray beginning = bytes.first(std::min(bytes.size(), firstSample)).toByteArray();
    for (const Encoding &encoding : encodings()) {
        const bool isByBeginning = !encoding.mayBeCut() && encoding.escapes.empty();
        if (isByBeginning && bytes.size() % encoding.unit == 0)
            search.consider(encoding, beginning);
    }
    if (!beginning.contains('\0'))
        considerNarrowOnes(search, bytes, plausibility);
    return search.ranking();
}
