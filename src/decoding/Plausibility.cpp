#include "decoding/Plausibility.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

struct Plausibility::Language {
    std::array<quint8, 0x10000> costs;
};

namespace {

using Costs = std::array<quint8, 0x10000>;

// What the characters cost; 35 is one letter of an alphabet among others.
constexpr quint8 ascii = 35, never = 200, rare = 140;
// Where Latin letters are strangers, among ideographs or in another alphabet.
constexpr quint8 latinLetter = 42;

struct Range {
    char16_t first, last;
    quint8 cost;
};

// The commonest characters that each language has beside ASCII. They need not be complete: they turn
// the balance in short texts.
struct Description {
    std::u16string_view common;
    quint8 cost;
    std::vector<Range> others;
};

constexpr std::u16string_view japanese =
    u"日一国会人年大十二本中長出三同時政事自行社見月分議後前民生連五発間対上部東者党地合市業内相方四定"
    "今回新場金員九入選立開手米力学問高代明実円関決子動京全目表戦経通外最言氏現理調体化田当八六約主"
    "題下首意法不来作性的要用制治度務強気小七成期公持野協取都和統以機平総加山思家話世受区領多県続進"
    "正安設保改数記院女初北午指権心界支第産結百派点教報済書府活原先共得解名交資予川向際査勝面委告軍"
    "文反元重近千考判認画海参売利組知案道信策集在件団別物側任引使求所次水半品昨論計死官増係感特情投"
    "示変打男私各始島直朝価式確村提運終挙果広容必応演電住争能無位置格有少放税常町校料工語空職土与急"
    "止送援可役構木割聴身費付切由説転食比難防車優夫研収断井何南石足違消境神番規術展態備宅害配副算条"
    "幹独警究育輸訪楽起万着乗店想線率農州声質念待試族象銀域助労例然早張映限親額監環験追商葉働形景落"
    "好退準辺造英頭技低毎医復味負渡失移差衆個門写評課末守若種美影命含福量望松非撃核観察段横深字夜製"
    "票況音財注呼達春夏秋冬朝昼夕雨風雪花草犬猫鳥魚窓机椅歩走聞読買帰待紙覚暗静白黒赤青古森林空海駅路"
    u"漢港株検索保存印刷様誰君僕彼吾輩坂崎藤伊佐岡";
constexpr std::u16string_view simplified =
    u"的一是不了在人有我他这个们中来上大为和国地到以说时要就出会可也你对生能而子那得于着下自之年过发后"
    "作里用道行所然家种事成方多经么去法学如都同现当没动面起看定天分还进好小部其些主样理心她本前开但因"
    "只从想实日军者意无力它与长把机十民第公此已工使情明性知全三又关点正业外将两高间由问很最重并物手应"
    "战向头文体政美相见被利什二等产或新己制身果加西斯月话合回特代内信表化老给世位次度门任常先海通教儿"
    "原东声提立及比员解水名真论处走义各入几口认条平系气题活尔更别打女变四神总何电数安少报才结反受目太"
    "量再感建务做接必场件计管期市直德资命山金指克许统区保至队形社便空决治展马科司五基眼书非则听白却界"
    "达光放强即像难且权思王象完设式色路记南品住告类求据程北边死张该交规万取拉格望觉术领共确传师观清今切院让"
    "识候带导争运";
constexpr std::u16string_view traditional =
    u"的一是不了在人有我他這個們中來上大為和國地到以說時要就出會可也你對生能而子那得於著下自之年過發後"
    "作裡用道行所然家種事成方多經麼去法學如都同現當沒動面起看定天分還進好小部其些主樣理心她本前開但因"
    "只從想實日軍者意無力它與長把機十民第公此已工使情明性知全三又關點正業外將兩高間由問很最重並物手應"
    "戰向頭文體政美相見被利什二等產或新己制身果加西斯月話合回特代內信表化老給世位次度門任常先海通教兒"
    "原東聲提立及比員解水名真論處走義各入幾口認條平系氣題活爾更別打女變四神總何電數安少報才結反受目太"
    "量再感建務做接必場件計管期市直德資命山金指克許統區保至隊形社便空決治展馬科司五基眼書非則聽白卻界"
    "達光放強即像難且權思王象完設式色路記南品住告類求據程北邊死張該交規萬取拉格望覺術領共確傳師觀清今切院讓"
    "識候帶導爭運";
constexpr std::u16string_view korean =
    u"이다는을에의고가하한지사도를기어로은그리나자시정아인있대일서니라수게해보원제전했면과들부장상스적주"
    "구으연여소공국비만성학것거안조생동때신년선와세우유없였모무마러화며관치경회방물말실오문진교심재할미"
    "계당결위바차양된않습려내업음간트불용르같저체데되요중설단집본발던산알던영날야또후람분민개월름통품못";

const std::vector<Range> cjkOthers{
    {0x2000, 0x27bf, 105}, {0x3000, 0x303f, 75},  {0x3041, 0x30ff, 105}, {0x3200, 0x33ff, 100},
    {0x4e00, 0x9fff, 100}, {0xf900, 0xfaff, 120}, {0xff01, 0xff5e, 70},
};

// Japanese first: it has the finest description.
const std::vector<Description> &eastAsian()
{
    static const std::vector<Description> languages{
        {japanese,
         66,
         {{0x2000, 0x27bf, 90},
          {0x3000, 0x303f, 75},
          {0x3041, 0x3096, 42},
          {0x30a1, 0x30fe, 52},
          {0x3200, 0x33ff, 90},
          {0x4e00, 0x9fff, 97},
          {0xf900, 0xfaff, 110},
          {0xff01, 0xff5e, 75},
          {0xff61, 0xff9f, 65},
          {0x391, 0x3c9, 105},
          {0x410, 0x44f, 115}}},
        {simplified, 58, cjkOthers},
        {traditional, 58, cjkOthers},
        {korean,
         55,
         {{0x2000, 0x27bf, 105},
          {0x3000, 0x303f, 80},
          {0x4e00, 0x9fff, 118},
          {0xac00, 0xd7a3, 80},
          {0xff01, 0xff5e, 95}}},
    };
    return languages;
}

// The letters that a language adds to the Latin ones, or those of its own script. Capitals follow from
// the small ones.
const std::vector<Description> &alphabetic()
{
    static const std::vector<Description> languages{
        {u"éèàêçùâîôûëïœü", 55, {}},
        {u"üäößé", 52, {}},
        {u"óíáéñúü¿¡ºª", 53, {}},
        {u"ãçáéíóêõâàúôü", 54, {}},
        {u"èàòùìéî", 52, {}},
        {u"åäöøæéüïë", 53, {}},
        {u"íáðþúóæýéö", 62, {}},
        {u"ąęłóśżćńź", 53, {}},
        {u"áíéěřžýščůú",
         53,
         {{u'ď', u'ď', 62}, {u'ť', u'ť', 64}, {u'ň', u'ň', 62}, {u'ľ', u'ľ', 64}, {u'ô', u'ô', 64}}},
        {u"áéöóőüíúű", 53, {}},
        {u"ăîâşţșț", 53, {}},
        {u"čšžćđ", 52, {}},
        {u"ıüşçöğİâî", 53, {}},
        {u"ėšųžūčįąę", 53, {}},
        {u"āīēšūņļžģķč", 54, {}},
        {u"õäöüšž", 53, {}},
        {u"оеаинтсрвлкмдпу",
         30,
         {{u'а', u'я', 40},
          {u'ё', u'ё', 60},
          {u'є', u'є', 55},
          {u'і', u'ї', 50},
          {0x452, 0x45f, 88},
          {0x490, 0x491, 75}}},
        {u"αοιετσνηυρπκμλςόίάέή", 32, {{0x3ac, 0x3ce, 45}}},
        {u"יוהלאמרתב", 26, {{0x5d0, 0x5ea, 37}, {0x5b0, 0x5c3, 60}}},
        {u"ابتدرسعفقكلمنهوي", 33, {{0x621, 0x652, 45}, {0x66a, 0x66d, 70}}},
    };
    return languages;
}

void allow(Costs &costs, char16_t c, quint8 cost)
{
    costs[c] = std::min(costs[c], cost);
}

void fillBasics(Costs &costs)
{
    for (size_t c = 0; c < costs.size(); ++c)
        costs[c] = QChar(char16_t(c)).isPrint() || QChar::isSurrogate(char16_t(c)) ? rare : never;
    std::fill(costs.begin() + 0xe000, costs.begin() + 0xf900, never); // private use
    std::fill(costs.begin() + 0xd83c, costs.begin() + 0xd83f, 50);    // emoji
    std::fill(costs.begin() + 0xdc00, costs.begin() + 0xe000, 50);    // the second halves of all pairs
    std::fill(costs.begin() + 0x20, costs.begin() + 0x7f, ascii);
    for (const char16_t c : std::u16string_view(u"\t\n\r\f"))
        costs[c] = ascii;
    for (const char16_t c : std::u16string_view(u"\u00a0\u0085«»“”‘’„–—…°§©®€£•"))
        costs[c] = 65;
}

void describe(Costs &costs, const Description &language)
{
    for (const Range &range : language.others) {
        for (char32_t c = range.first; c <= range.last; ++c)
            allow(costs, char16_t(c), QChar(char16_t(c)).isPrint() ? range.cost : never);
    }
    for (const char16_t c : language.common)
        allow(costs, c, language.cost);
}

bool isLatin(const Description &language)
{
    return !language.common.empty() && language.common.front() < 0x250;
}

void makeLatinRare(Costs &costs)
{
    for (const char first : {'A', 'a'})
        std::fill_n(costs.begin() + first, 26, latinLetter);
}

// A capital costs a little more than its small letter, so that a text all in capitals is found, too.
void addCapitals(Costs &costs)
{
    for (char16_t c = 0xa0; c < 0x2000; ++c) {
        const QChar capital = QChar(c).toUpper();
        if (costs[c] < 80 && capital != QChar(c))
            allow(costs, capital.unicode(), quint8(costs[c] + 12));
    }
}

} // namespace

namespace {

bool isHalfWidthKana(QChar c)
{
    return c.unicode() >= 0xff61 && c.unicode() <= 0xff9f;
}

bool isAscii(QChar c)
{
    return c.unicode() < 0x80;
}

bool isSmallAscii(QChar c)
{
    return c.unicode() >= u'a' && c.unicode() <= u'z';
}

// What two characters side by side tell, in any language: half-width kana come in runs; an ideograph
// seldom stands inside a Latin word; a capital seldom follows a small letter, and a letter seldom follows
// one of another alphabet.
int neighbourCost(QChar before, QChar c)
{
    if (isAscii(before) && isAscii(c))
        return 0;
    if (isHalfWidthKana(c) && isHalfWidthKana(before))
        return -23;
    if ((isSmallAscii(before) && c.unicode() >= 0x2e80) || (isSmallAscii(c) && before.unicode() >= 0x2e80))
        return 20;
    if (!before.isLetter() || !(c.isLetter() || c.isMark()) || before.unicode() >= 0x2000
        || c.unicode() >= 0x2000)
        return 0;
    const int turn = !c.isUpper() ? 0 : before.isLower() ? 60 : before.isUpper() ? 8 : 0;
    return turn + (before.script() != c.script() ? 50 : 0);
}

bool isForText(QChar c)
{
    return c.category() != QChar::Other_Control || QStringView(u"\t\n\f\r\x1a\x1b\u0085").contains(c);
}

} // namespace

Plausibility::Plausibility()
{
    Language basics;
    fillBasics(basics.costs);
    for (const auto &family : {eastAsian(), alphabetic()}) {
        for (const Description &description : family) {
            Language &language = m_languages.emplace_back(basics);
            describe(language.costs, description);
            addCapitals(language.costs);
            if (!isLatin(description))
                makeLatinRare(language.costs);
        }
    }
}

Plausibility::~Plausibility() = default;

Plausibility::Cost Plausibility::cost(QStringView text) const
{
    Cost cost;
    qint64 neighbours = 0;
    qsizetype foreigners = 0, unfit = 0;
    QChar before = u' ';
    for (const QChar c : text) {
        neighbours += neighbourCost(before, c);
        foreigners += isAscii(c) ? 0 : 1;
        unfit += isForText(c) ? 0 : 1;
        before = c;
    }
    qint64 least = std::numeric_limits<qint64>::max();
    qint64 asciiCost = 0;
    for (const Language &language : m_languages) {
        qint64 sum = 0, ofAscii = 0;
        for (const QChar c : text) {
            const int one = language.costs[c.unicode()];
            sum += one;
            ofAscii += isAscii(c) ? one : 0;
        }
        if (sum < least) {
            least = sum;
            asciiCost = ofAscii;
        }
    }
    cost.foreigners = foreigners;
    cost.whole = double(least + neighbours);
    cost.foreign = foreigners ? double(least - asciiCost + neighbours) / double(foreigners) : 0;
    cost.isText = unfit <= (text.size() + 200) / 250 && !text.contains(QChar(0));
    return cost;
}
