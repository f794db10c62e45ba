#include "reading/EncodingGuess.h"

#include "reading/Plausibility.h"
#include "reading/StrictConverter.h"

#include <uchardet/uchardet.h>

#include <algorithm>
#include <array>

namespace {

struct Candidate {
    const char *encoding;
    double headStart; // in the measure of Plausibility: who uses this program reads Japanese
};

constexpr std::array singleAndDouble{
    Candidate{"windows-31j", 40}, Candidate{"EUC-JP", 40},      Candidate{"GB18030", 0},
    Candidate{"Big5", 0},         Candidate{"windows-949", 0},  Candidate{"KOI8-R", 0},
    Candidate{"KOI8-U", -5},      Candidate{"windows-1251", 5}, Candidate{"windows-1252", 20},
    Candidate{"windows-1250", 0}, Candidate{"windows-1253", 0}, Candidate{"windows-1254", 0},
    Candidate{"windows-1255", 0}, Candidate{"windows-1256", 0}, Candidate{"windows-1257", 0},
    Candidate{"ISO-8859-2", -5},  Candidate{"ISO-8859-5", -5},  Candidate{"ISO-8859-7", -5},
    Candidate{"ISO-8859-15", -5}, Candidate{"IBM866", -5},
};
constexpr std::array wide{
    Candidate{"UTF-16LE", 0},
    Candidate{"UTF-16BE", 0},
    Candidate{"UTF-32LE", 0},
    Candidate{"UTF-32BE", 0},
};

constexpr double uchardetsWord = 30;
// On average a character of a text that means something costs less, and noise costs more.
constexpr double dearest = 98;
// When the likeliest encoding fails, what is this much dearer isn't right but the text is damaged.
constexpr double nearlyAsLikely = 1.1;
// What is this much dearer at the beginning won't win.
constexpr double hopeless = 1.6;

constexpr qsizetype firstTaste = 4 << 10, firstSample = 32 << 10, laterSample = 4 << 10;
constexpr int laterSamples = 4;

// In all these encodings such a byte is a character of its own: before and after it, one may cut.
bool isSeam(char c)
{
    return uchar(c) < 0x30;
}

QByteArrayView cutAtSeams(QByteArrayView piece)
{
    const auto *first = std::find_if(piece.begin(), piece.end(), isSeam);
    const auto last =
        std::find_if(std::make_reverse_iterator(piece.end()), std::make_reverse_iterator(first), isSeam);
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
    const auto *end = cutAtSeams(beginning).end();
    QByteArray sample(beginning.data(), end == beginning.begin() ? firstSample : end - beginning.begin());
    if (sample.size() == firstSample)
        return sample;
    for (int i = 1; i <= laterSamples; ++i) {
        const qsizetype from = (rest.size() - laterSample) / laterSamples * i;
        if (from >= firstSample)
            sample += cutAtSeams(rest.sliced(from, laterSample));
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
    if (name == "SHIFT_JIS")
        return "windows-31j";
    if (name == "EUC-KR" || name == "UHC")
        return "windows-949";
    return name;
}

struct Finding {
    const char *encoding;
    double dearness; // of a byte
};

class Search {
public:
    explicit Search(const Plausibility &plausibility)
        : m_plausibility(plausibility)
    {
    }

    // What fails late in an otherwise plausible text stays in the race: if it wins, the text is damaged.
    void consider(const Candidate &candidate, const QByteArray &sample, double bonus = 0)
    {
        const auto beginning = StrictConverter::decodedBeginning(sample, candidate.encoding);
        const bool fails = beginning.bytes < sample.size();
        if (beginning.bytes == 0 || (fails && beginning.bytes < sample.size() / 4 * 3))
            return;
        add(candidate, beginning.text, beginning.bytes, bonus, fails ? 20 : 0);
    }

    // A text in UTF-8 that somebody has damaged makes sense in no other encoding.
    void considerDamagedUtf8(const QByteArray &sample)
    {
        add({"UTF-8", 40}, QString::fromUtf8(sample), sample.size(), 0, 1);
    }

    bool found(const Candidate &candidate) const
    {
        return std::any_of(m_findings.begin(), m_findings.end(), [&candidate](const Finding &finding) {
            return finding.encoding == candidate.encoding;
        });
    }

    // Those that aren't much dearer than the cheapest, which comes first.
    std::vector<const char *> ranking(double farthest = nearlyAsLikely)
    {
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const Finding &a, const Finding &b) { return a.dearness < b.dearness; });
        std::vector<const char *> names;
        for (const Finding &finding : m_findings) {
            if (finding.dearness <= farthest * m_findings.front().dearness)
                names.push_back(finding.encoding);
        }
        return names;
    }

private:
    void add(const Candidate &candidate, QStringView text, qsizetype bytes, double bonus,
             qsizetype leastForeigners)
    {
        const auto cost = m_plausibility.cost(text);
        if (!cost.isText || cost.foreign > dearest || cost.foreigners < leastForeigners)
            return;
        const double worth = candidate.headStart + bonus;
        m_findings.push_back({candidate.encoding, (cost.whole - worth) / double(bytes)});
    }

    const Plausibility &m_plausibility;
    std::vector<Finding> m_findings;
};

// A taste tells which ones need not be tried on the whole sample.
std::vector<Candidate> hopefulOnes(const QByteArray &sample, const Plausibility &plausibility)
{
    std::vector<Candidate> hopeful(singleAndDouble.begin(), singleAndDouble.end());
    if (sample.size() < 2 * firstTaste)
        return hopeful;
    const QByteArray taste = cutAtSeams(QByteArrayView(sample).first(firstTaste)).toByteArray();
    Search search(plausibility);
    for (const Candidate &candidate : hopeful)
        search.consider(candidate, taste);
    const auto near = search.ranking(hopeless);
    std::erase_if(hopeful, [&](const Candidate &candidate) {
        return search.found(candidate)
            && std::find(near.begin(), near.end(), candidate.encoding) == near.end();
    });
    return hopeful;
}

} // namespace

std::vector<const char *> plausibleEncodings(QByteArrayView bytes)
{
    const Plausibility plausibility;
    Search search(plausibility);
    const QByteArray beginning = bytes.first(std::min(bytes.size(), firstSample)).toByteArray();
    for (const Candidate &candidate : wide) {
        if (bytes.size() % (qstrncmp(candidate.encoding, "UTF-16", 6) == 0 ? 2 : 4) == 0)
            search.consider(candidate, beginning);
    }
    if (!beginning.contains('\0')) {
        const QByteArray sample = sampleOf(bytes);
        search.considerDamagedUtf8(sample);
        const QByteArray word = wordOfUchardet(sample);
        for (const Candidate &candidate : hopefulOnes(sample, plausibility)) {
            const bool heard = word.compare(candidate.encoding, Qt::CaseInsensitive) == 0;
            search.consider(candidate, sample, heard ? uchardetsWord : 0);
        }
    }
    return search.ranking();
}
