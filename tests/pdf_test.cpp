#include "Testing.h"
#include "pdf/PngPixels.h"
#include "pdf/TextPdf.h"

#include <QColor>
#include <QDateTime>
#include <QElapsedTimer>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <map>
#include <span>
#include <thread>

// The fonts in these folders are all there are, for a while.
class Fonts {
public:
    explicit Fonts(const QStringList &folders)
    {
        QByteArray rules = "<fontconfig><include>" + qgetenv("FONTCONFIG_FILE") + "</include><reset-dirs/>";
        for (const QString &folder : folders)
            rules += "<dir>" + folder.toUtf8() + "</dir>";
        rules += "</fontconfig>";
        FcConfig *config = FcConfigCreate();
        FcConfigParseAndLoadFromMemory(config, reinterpret_cast<const FcChar8 *>(rules.constData()),
                                       FcTrue);
        FcConfigBuildFonts(config);
        FcConfigSetCurrent(config);
        FcConfigDestroy(config);
    }
    ~Fonts() { FcConfigSetCurrent(m_before); }
    Q_DISABLE_COPY_MOVE(Fonts)

private:
    FcConfig *m_before = FcConfigReference(nullptr);
};

// What is in the documents is asked of a reader that has nothing in common with their maker.
class PdfTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QTemporaryDir m_fonts;
    QString m_file = m_folder.filePath(u"text.pdf"_s);
    const QRegularExpression m_directions{u"[\u202a-\u202e]"_s}; // as the reader marks them

    PdfResult write(const QString &text, const PdfSettings &settings = {})
    {
        QByteArray document;
        const auto output = [&](const char *bytes, std::size_t count) {
            document.append(bytes, qsizetype(count));
            return true;
        };
        PdfProgress progress;
        const PdfResult result = writeTextPdf(text.toStdU16String(), settings, output, progress);
        written(m_file, document);
        return result;
    }

    QString read(const QStringList &how) const
    {
        return said(u"pdftotext"_s, how + QStringList{m_file, u"-"_s});
    }

    // What a tool says; null when it fails.
    static QString said(const QString &tool, const QStringList &arguments)
    {
        QProcess process;
        process.start(tool, arguments);
        process.waitForFinished();
        const bool isWell = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return isWell ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
    }

    bool isSound() const { return !said(u"qpdf"_s, {u"--check"_s, m_file}).isNull(); }

    // The languages that stretches of the first page have.
    QString spans() const
    {
        static const QRegularExpression language(u"/Lang\\(\\w+\\)"_s);
        QString all;
        for (const auto &found : language.globalMatch(said(u"qpdf"_s, {u"--qdf"_s, m_file, u"-"_s})
                                                          .section(u"BT\n"_s, 1)
                                                          .section(u"ET\n"_s, 0, 0)))
            all += found.captured();
        return all;
    }

    // What a reader of its structure gets, element by element; null where it isn't what it says it is.
    QString structure() const
    {
        QProcess check;
        check.start(QString::fromUtf8(ARCHIVAL), {m_file});
        check.waitForFinished();
        const QByteArray broken = check.readAllStandardError();
        if (!broken.isEmpty())
            qWarning("%s", broken.constData());
        return check.exitCode() == 0 ? u""_s.append(QString::fromUtf8(check.readAllStandardOutput()))
                                     : QString();
    }

    // Without its elements' roles and languages.
    QString structureText() const
    {
        static const QRegularExpression roles(u"^\\w+ \\w+ "_s, QRegularExpression::MultilineOption);
        return structure().remove(roles);
    }

    // The reader folds blanks, and ends lines where the page does.
    static QString withoutBlanks(QString text)
    {
        static const QRegularExpression blanks(u"\\s+"_s, QRegularExpression::UseUnicodePropertiesOption);
        return text.remove(blanks);
    }

    // With their places on the page.
    QList<std::pair<QString, QRectF>> words() const
    {
        static const QRegularExpression box(
            u"<word xMin=\"([^\"]+)\" yMin=\"([^\"]+)\" xMax=\"([^\"]+)\" yMax=\"([^\"]+)\">([^<]*)"_s);
        QList<std::pair<QString, QRectF>> all;
        for (const auto &word : box.globalMatch(read({u"-bbox"_s}))) {
            const auto number = [&](int i) { return word.captured(i).toDouble(); };
            all.emplaceBack(word.captured(5).remove(m_directions),
                            QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4))));
        }
        return all;
    }

    // Of the first address, one in each line.
    QList<QRectF> linkBoxes() const
    {
        const QString all = said(u"qpdf"_s, {u"--qdf"_s, m_file, u"-"_s})
                                .section(u"/QuadPoints ["_s, 1)
                                .section(u']', 0, 0);
        const QStringList corners = all.simplified().split(u' ');
        QList<QRectF> boxes;
        for (int i = 0; i + 8 <= corners.size(); i += 8) {
            const auto at = [&](int number) { return corners[i + number].toDouble(); };
            boxes.emplaceBack(QPointF(at(0), 842 - at(1)), QPointF(at(6), 842 - at(7)));
        }
        return boxes;
    }

    // The upper part of the first page.
    QImage page(int dotsPerInch = 72) const
    {
        const QString picture = m_folder.filePath(u"page"_s);
        const QString height = QString::number(dotsPerInch * 5 / 3);
        QProcess::execute(u"pdftoppm"_s,
                          {u"-r"_s, QString::number(dotsPerInch), u"-H"_s, height, u"-singlefile"_s,
                           u"-png"_s, m_file, picture});
        return QImage(picture + u".png"_s);
    }

    static QRect whereDark(const QImage &page, int paper = 128)
    {
        const QImage grey = page.convertToFormat(QImage::Format_Grayscale8);
        QRect dark;
        for (int y = 0; y < grey.height(); ++y) {
            const std::span row(grey.constScanLine(y), std::size_t(grey.width()));
            const auto isDark = [paper](uchar value) { return value < paper; };
            const auto first = std::find_if(row.begin(), row.end(), isDark);
            const auto last = std::find_if(row.rbegin(), row.rend(), isDark);
            if (first != row.end())
                dark |= QRect(QPoint(int(first - row.begin()), y), QPoint(int(row.rend() - last) - 1, y));
        }
        return dark;
    }

    static int colouredIn(const QImage &page)
    {
        int coloured = 0;
        for (int y = 0; y < page.height(); ++y) {
            for (int x = 0; x < page.width(); ++x)
                coloured += QColor(page.pixel(x, y)).saturation() > 60;
        }
        return coloured;
    }

    // Those that are made for the tests, and some that are installed.
    QStringList allFonts() const { return {m_fonts.path(), u"/usr/share/fonts"_s}; }

    // Of many colours, half of them seen through.
    static QImage gradient(QImage::Format format)
    {
        QImage image(9, 7, QImage::Format_RGBA8888);
        for (int y = 0; y < 7; ++y) {
            for (int x = 0; x < 9; ++x)
                image.setPixelColor(x, y, QColor(x * 28, y * 36, 200 - x * y, 255 - (x % 2) * y * 30));
        }
        return image.convertToFormat(format);
    }

    static QString prose()
    {
        QString text;
        for (int i = 0; i < 60; ++i)
            text +=
                u"「東京」（とうきょう）は、日本の首都です。ええっ、ほんとうですか？ジャーン！「はい」……%1。"_s
                    .arg(i * i * i);
        return text;
    }

private slots:
    void textComesOutAsItWentIn_data()
    {
        QString rare;
        for (char32_t c = 0xf0000; c < 0xf0600; ++c)
            rare += QString::fromUcs4(&c, 1);
        cases<QString>({
            {"prose with brackets, small kana and ideographic spaces", prose()},
            {"full and half width, compatibility characters", u"ＡＢＣ　ｱﾊﾟｰﾄ ①㈱㎏℃ 髙﨑 〜～ −－ ‥…—"_s},
            {"characters that look the same and share a glyph", u"日⽇文⽂一⼀ KK ΩΩ"_s},
            {"kerning and ligatures", u"AVATAR office ffl fi To We ‘L’été’ naïve"_s},
            {"marks, variants, syllables made of parts",
             u"か\u309aき\u309a e\u0301 葛\U000e0100飾 \u1112\u1161\u11ab 각"_s},
            {"emoji of one and of several characters",
             u"😀🎉👨‍👩‍👧🇯🇵🇺🇸👍🏽1️⃣❤️☺🏳️‍🌈"_s},
            {"an emoji in the middle of words", u"note2️⃣self 猫🐈‍⬛黒"_s},
            {"parentheses, backslashes, and codes that would be line ends", u"(a\\(b)\\n) čĊ ഊ"_s},
            {"marks that no character has with its letter",
             u"q\u0302\u0301 Q\u0301 g\u0323 か\u20dd 日\u20de ❤\ufe0e"_s},
            {"nothing to be seen", u"a\u200bb\u00adc\ufeffd\u2060e"_s},
            {"characters that no font has", rare},
            {"a word without an end", u"abc"_s.repeated(20'000)},
        });
    }
    void textComesOutAsItWentIn()
    {
        const auto [text] = values<QString>();
        QCOMPARE(write(text), PdfResult::Written);
        QCOMPARE(withoutBlanks(read({u"-raw"_s})), withoutBlanks(text));
        QCOMPARE(withoutBlanks(read({})), withoutBlanks(text)); // in the order of reading, too
        QCOMPARE(withoutBlanks(structureText()), withoutBlanks(text));
    }

    void readersAreToldOfParagraphsAndLanguages()
    {
        const std::pair<const char16_t *, const char16_t *> texts[]{
            {u"一つ目の\n段落。\n\n二つ目。\n　三つ目。\f四つ目。\n \n",
             u"P ja 一つ目の段落。\nP ja 二つ目。\nP ja 　三つ目。\nP ja 四つ目。\n"},
            {u"Hard-wrapped by\nits writer.\n\nПривет\n\n안녕 세상",
             u"P en Hard-wrapped by\nits writer.\n"
             u"P ru Привет\nP ko 안녕 세상\n"},
            {u"שלום עולם 123 abc.\n\nمرحبا بالعالم", u"P he שלום עולם 123 abc.\nP ar مرحبا بالعالم\n"},
            {u"これは「the quick fox」と「Linux」と「Привет」。",
             u"P ja これは「the quick fox」と「Linux」と「Привет」。\n"},
        };
        for (const auto &[text, told] : texts) {
            QCOMPARE(write(QString::fromUtf16(text)), PdfResult::Written);
            QCOMPARE(structure(), QString::fromUtf16(told));
        }
        QCOMPARE(spans(), u"/Lang(en)/Lang(ru)"_s);
        write(u"a\n"_s.repeated(100)); // one paragraph goes on overleaf
        QCOMPARE(structure().count(u"P "_s), 1);
        QCOMPARE(write(QString()), PdfResult::Written);
        QCOMPARE(structure(), u""_s);
        QVERIFY(!structure().isNull());
        QVERIFY(write(u"a\u0000b\ufeffc\ufffed\ue000e"_s) == PdfResult::Written && !structure().isNull());
    }

    void addressesCanBeFollowed()
    {
        const std::pair<const char16_t *, const char16_t *> texts[]{
            {u"（https://a.example/b_(c)?d=e&f#g）、http://日本", u"https://a.example/b_(c)?d=e&f#g"},
            {u"See (http://a.example/b). \"https://c.example,\" xhttp://d.example https:// http://a",
             u"http://a.example/b https://c.example http://a"},
            {u"はhanako.y+z@a.example.jp。@b @c.d e@f g@.h i@j.k", u"mailto:hanako.y+z@a.example.jp"},
            {u"https://a.example/b@c.example?(d)e)", u"https://a.example/b@c.example?(d)e"},
            {u"שלום https://a.example/b עולם", u"https://a.example/b"},
            {u"[https://a.example/A_(B)][2]、https://a.example/C_(D)",
             u"https://a.example/A_(B)][2 https://a.example/C_(D)"},
            {u"https://a.example/%E6%97%A5?b=%25", u"https://a.example/%E6%97%A5?b=%25"},
        };
        for (const auto &[text, expected] : texts) {
            QCOMPARE(write(QString::fromUtf16(text)), PdfResult::Written);
            QVERIFY(!structure().isNull());
            QStringList followed;
            for (const QString &line : said(u"pdfinfo"_s, {u"-url"_s, m_file}).split(u'\n').mid(1))
                followed += line.simplified().section(u' ', 2);
            QCOMPARE(followed.join(u' ').trimmed(), QString::fromUtf16(expected));
        }
        write(u"国https://"_s + u"a.example/"_s.repeated(30));
        QCOMPARE(linkBoxes().size(), 4); // lines
        QCOMPARE(said(u"pdfinfo"_s, {u"-url"_s, m_file}).count(u"Annotation"_s), 1);
        const QStringList around = said(u"qpdf"_s, {u"--qdf"_s, m_file, u"-"_s})
                                       .section(u"/Rect ["_s, 1)
                                       .section(u']', 0, 0)
                                       .simplified()
                                       .split(u' ');
        QVERIFY(842 - around[1].toDouble() >= linkBoxes().last().bottom() - 1);
        for (const QString &text : {u"See http://a.example now"_s, u"שלום http://a.example עולם"_s}) {
            write(text);
            const auto all = words();
            const auto word = std::find_if(all.begin(), all.end(),
                                           [](auto &each) { return each.first.startsWith(u"http"_s); });
            const QRectF box = linkBoxes().value(0);
            QVERIFY(qAbs(box.left() - word->second.left()) < 0.5);
            QVERIFY(qAbs(box.right() - word->second.right()) < 0.5);
            QVERIFY(qAbs(box.center().y() - word->second.center().y()) < 4);
        }
    }

    void theSameTextMakesTheSameBytes()
    {
        const QString text = prose() + u"AV fi 😀 日⽇ שלום ☺ https://a.example/"_s;
        qputenv("SOURCE_DATE_EPOCH", "1000000000");
        write(text, {.title = "a<b>&(c)\\漢\n"});
        const QByteArray first = contentOf(m_file);
        QVERIFY(!structure().isNull());
        QVERIFY(said(u"pdfinfo"_s, {m_file, u"-isodates"_s}).contains(u"2001-09-09T01:46:40Z"_s));
        QVERIFY(said(u"pdfinfo"_s, {m_file}).contains(u"a<b>&(c)\\漢\n"_s));
        const std::vector<char> elsewhere(12'345'678); // what is made now has other addresses
        write(text, {.title = "a<b>&(c)\\漢\n"});
        QVERIFY(contentOf(m_file) == first);
        qunsetenv("SOURCE_DATE_EPOCH");
        qputenv("TZ", "Asia/Tokyo");
        ::tzset();
        write(text);
        const auto made = QDateTime::fromString(said(u"pdfinfo"_s, {m_file, u"-isodates"_s})
                                                    .section(u"CreationDate:"_s, 1)
                                                    .section(u'\n', 0, 0)
                                                    .trimmed(),
                                                Qt::ISODate);
        QVERIFY(qAbs(made.secsTo(QDateTime::currentDateTime())) < 100);
        qunsetenv("TZ");
        QVERIFY(!structure().isNull());
    }

    void pagesAreNumberedIfWanted()
    {
        const PdfSettings numbered{.format = {.isNumbered = true}, .ranges = {{2, 3}}};
        QCOMPARE(write(u"a\n"_s.repeated(120), numbered), PdfResult::Written);
        const auto all = words();
        for (const QString &number : {u"2"_s, u"3"_s}) {
            const auto found =
                std::find_if(all.begin(), all.end(), [&](auto &w) { return w.first == number; });
            QVERIFY(found != all.end());
            QVERIFY(qAbs(found->second.center().x() - 297.5) < 1 && found->second.top() > 806);
        }
        QCOMPARE(all.size(), 120 - 45 + 2);
        QVERIFY(!structure().contains(u'2'));
    }

    void whatIsAPictureIsInColour()
    {
        for (const QString &text : {u"😀"_s, u"❤️"_s, u"note2️⃣self"_s, u"🇯🇵"_s, u"🏳️‍🌈"_s,
                                    u"☝🏽"_s, u"a🏽"_s}) {
            QCOMPARE(write(text), PdfResult::Written);
            QVERIFY2(colouredIn(page(40)) > 3, qPrintable(text));
        }
        for (const bool grey : {false, true}) {
            write(u"国😀"_s, {.grey = grey});
            const QRect both = whereDark(page(), 250);
            QVERIFY(both.top() > 18 && both.bottom() < 40); // on their line
            const QImage emoji =
                page().copy(both.center().x() + 1, both.top(), both.width() / 2, both.height());
            const QColor mean = emoji.scaled(1, 1, {}, Qt::SmoothTransformation).pixelColor(0, 0);
            QVERIFY(mean.value() > 160 && (mean.saturation() > 40) != grey);
        }
        QCOMPARE(write(u"☺ ✔ ✈ ™ ℹ ❤ ☝"_s), PdfResult::Written);
        QCOMPARE(colouredIn(page(40)), 0);
    }

    // Around a verse's number and the like: the box of a missing glyph at least.
    void whatIsNotToBeIgnoredIsSeen()
    {
        for (const char32_t c : {0x6ddU, 0x600U, 0x605U, 0x70fU, 0x8e2U, 0x110bdU, 0x110cdU}) {
            write(u"\ue123"_s + QString::fromUcs4(&c, 1)); // beside what needs no font
            const QRect both = whereDark(page());
            write(u"\ue123"_s);
            QVERIFY2(both.width() > whereDark(page()).width() + 2, QByteArray::number(c, 16));
        }
    }

    void fontsOfEachKindAreDrawn()
    {
        QCOMPARE(QProcess::execute(QString::fromUtf8(MAKE_FONTS), {m_fonts.path()}), 0);
        const Fonts fonts(allFonts());
        QCOMPARE(write(u"\ue000"_s), PdfResult::Written); // red over the left, half blue over the right
        const QImage layers = page();
        QCOMPARE(layers.pixelColor(22, 28), QColor(Qt::red));
        QCOMPARE(layers.pixelColor(25, 28), QColor(127, 127, 255));
        QCOMPARE(write(u"\ue000"_s, {.grey = true}), PdfResult::Written);
        QCOMPARE(colouredIn(page()), 0);
        QCOMPARE(write(u"😀"_s, {.fontFamily = "Painted"}), PdfResult::Written);
        QVERIFY(colouredIn(page()) > 20);                 // from the next font
        QCOMPARE(write(u"\ue001"_s), PdfResult::Written); // which is 0.1 wide where it is thin
        QVERIFY(qAbs(whereDark(page(300)).width() - 20) < 2);
        QCOMPARE(write(u"\ue010"_s), PdfResult::Written); // whose font may not be embedded
        QVERIFY(!said(u"pdffonts"_s, {m_file}).contains(u"CID"_s));
        QCOMPARE(write(u"q\u0302\u0301 q\u0301"_s, {.fontFamily = "Marks"}), PdfResult::Written);
        QCOMPARE(withoutBlanks(read({})), u"q\u0302\u0301q\u0301"_s);
    }

    void pagesOfBoxesAreRefused()
    {
        const QString text = prose();
        {
            const Fonts none({m_folder.path()});
            QCOMPARE(write(u"abc"_s), PdfResult::NoFonts);
        }
        const Fonts western({u"/usr/share/fonts/truetype/dejavu"_s});
        QCOMPARE(write(text), PdfResult::NoFonts);
        QCOMPARE(write(u"In English, 日本 is two boxes."_s), PdfResult::Written);
        QCOMPARE(write(u"abc"_s.repeated(100'000) + text), PdfResult::Written);
        QCOMPARE(write(text.repeated(100) + u"abc"_s), PdfResult::NoFonts);
    }

    void aSoftHyphenIsSeenAtTheEndOfALineOnly()
    {
        const QString text = u"aaaaaaa\u00ad"_s.repeated(40);
        QCOMPARE(write(text), PdfResult::Written);
        QCOMPARE(withoutBlanks(read({u"-raw"_s})), text);
        const QRect hyphenated = whereDark(page(144).copy(0, 0, 1190, 76));
        QCOMPARE(write(QString(text).replace(u"\u00ad"_s, u"\u200b"_s)), PdfResult::Written);
        const QRect plain = whereDark(page(144).copy(0, 0, 1190, 76));
        QVERIFY(hyphenated.right() > plain.right() + 4 && hyphenated.right() <= 1140);
    }

    void whatIsReadTogetherStandsTogether()
    {
        const auto width = [this](const QString &text) {
            write(text);
            return words().front().second.width();
        };
        QCOMPARE(width(u"가\u11ab가\u11ab"_s), width(u"간간"_s));
        write(u"X"_s);
        const int letter = whereDark(page(300)).top();
        write(u"X\u0302"_s); // whose mark lies above a capital, too
        QVERIFY(whereDark(page(300)).top() < letter - 7);
        QString heaps; // of marks, so that one glyph stands for ever new texts
        for (char16_t i = 0; i < 21 * 21 * 21; ++i)
            heaps += u"ω\u0314\u0342\u0345"_s + QChar(0x300 + i % 21) + QChar(0x300 + i / 21 % 21)
                + QChar(0x300 + i / 441) + u"\u0301"_s;
        QCOMPARE(write(heaps), PdfResult::Written);
        QVERIFY(withoutBlanks(read({u"-raw"_s})) == heaps);
        QVERIFY(contentOf(m_file).size() < 400'000);
    }

    void linesAreAtAnEvenDistance()
    {
        const Fonts fonts(allFonts());
        for (const char *family : {"", "Low", "DejaVu Sans"}) {
            QCOMPARE(write(u"日\n日\n日"_s, {.fontFamily = family}), PdfResult::Written);
            const int bottom = whereDark(page()).bottom();
            QVERIFY2(bottom > 65, family);
            for (const QString &between :
                 {u"漢字"_s, u"abc"_s, u"é Ж ™"_s, u"한글"_s, u"😀"_s, u"〱"_s, u"ế"_s}) {
                write(u"日\n%1\n日"_s.arg(between), {.fontFamily = family});
                QVERIFY2(qAbs(whereDark(page()).bottom() - bottom) <= 1, qPrintable(between));
            }
        }
    }

    // In squares, from the ink of the first character to that of the last.
    void charactersKeepTheirDistance()
    {
        const auto squares = [this](const QString &text) {
            write(text);
            return (whereDark(page(300)).width() - 41.4) / 50; // a 国 is so wide
        };
        QCOMPARE(qRound(squares(u"国国"_s)), 1);
        for (const QString &pair :
             {u"」「"_s, u"。「"_s, u"、『"_s, u"（「"_s, u"」）"_s, u"」。"_s, u"」　"_s, u"・「"_s})
            QVERIFY2(qAbs(squares(u'国' + pair + u'国') - 2.5) < 0.05, qPrintable(pair));
        for (const QString &pair : {u"国「"_s, u"」国"_s, u"……"_s, u"国　"_s, u"！「"_s, u"「国"_s})
            QVERIFY2(qAbs(squares(u'国' + pair + u'国') - 3) < 0.05, qPrintable(pair));
        const double letter = squares(u"国AA国"_s) - squares(u"国A国"_s);
        QVERIFY(qAbs(squares(u"国A国"_s) - 1.5 - letter) < 0.05);
        QVERIFY(qAbs(squares(u"国5％国"_s) - squares(u"国国国"_s) - (squares(u"国5国"_s) - 1.25)) < 0.06);
    }

    void linesOfJapaneseEndInLineButTheLast()
    {
        const QString lines = u"　国「国」（国）国AB国、"_s + u"国"_s.repeated(90);
        QCOMPARE(write(lines), PdfResult::Written);
        const QImage image = page(144);
        for (int i = 0; i < 3; ++i) {
            const QRect dark = whereDark(image.copy(0, 44 + qRound(i * 34.75), 1190, 28));
            QVERIFY2(i == 2 ? dark.right() < 1100 : qAbs(dark.right() - 1137) <= 1,
                     QByteArray::number(dark.right()));
        }
        QCOMPARE(withoutBlanks(read({})), withoutBlanks(lines));
        write(u"日本のLinuxと「A4」、『PDF』。「はい」"_s);
        QCOMPARE(read({u"-raw"_s}).trimmed(), u"日本のLinuxと「A4」、『PDF』。「はい」"_s);
        for (const QChar hanging : {u'。', u'、', u'」', u'　'}) {
            write(u"国"_s.repeated(45) + hanging + u"国国"_s);
            QCOMPARE(withoutBlanks(read({u"-raw"_s}).section(u'\n', 1)), u"国国"_s);
        }
        for (const QString &whole :
             {u"１００％"_s, u"25℃"_s, u"￥１，０００"_s, u"５㎏"_s, u"……"_s, u"A4"_s}) {
            write(u"国"_s.repeated(44) + whole + u"国"_s);
            QVERIFY2(read({u"-raw"_s}).contains(whole), qPrintable(whole));
        }
    }

    void picturesKeepTheirPixels()
    {
        for (const QImage::Format format :
             {QImage::Format_RGB888, QImage::Format_RGBA8888, QImage::Format_RGBA64,
              QImage::Format_Indexed8, QImage::Format_Grayscale8, QImage::Format_Mono}) {
            const QImage image = gradient(format);
            const auto pixels = pngPixels(png(image).toStdString());
            QVERIFY2(pixels && pixels->hasOpacity == image.hasAlphaChannel(), QByteArray::number(format));
            const QImage read(pixels->bytes.data(), pixels->width, pixels->height, QImage::Format_RGBA8888);
            QVERIFY2(read == image.convertToFormat(QImage::Format_RGBA8888), QByteArray::number(format));
        }
    }

    void aPictureThatIsDamagedOrHugeIsNone()
    {
        const QByteArray whole = png(gradient(QImage::Format_RGBA8888));
        const auto claiming = [&](const char *size) { // what the header says of a picture of gigabytes
            return QByteArray::fromHex(QByteArray("89504e470d0a1a0a0000000d49484452") + size)
                + whole.mid(33);
        };
        QByteArray wrong = whole;
        wrong[wrong.size() / 2] = char(~wrong[wrong.size() / 2]);
        const std::pair<const char *, QByteArray> files[]{
            {"nothing", {}},
            {"no picture", "<svg/>"},
            {"a header alone", whole.left(33)},
            {"half of its pixels", whole.left(whole.size() / 2)},
            {"a wrong byte", wrong},
            {"30,000 by 30,000 in its header", claiming("000075300000753008060000006627f8ba")},
            {"a million by a million", claiming("000f4240000f424008060000005c6d387d")},
            {"100 MB of white", png(QImage(5000, 5000, QImage::Format_Mono))},
        };
        for (const auto &[name, bytes] : files)
            QVERIFY2(!pngPixels(bytes.toStdString()), name);
    }

    void whatIsNoCharacterHarmsNothing()
    {
        QString text = u"a\u0001b\u007fc\ufffe"_s + QChar(0xd800) + u"d\v e\u0085f"_s;
        text.insert(2, QChar(0));
        QCOMPARE(write(text), PdfResult::Written);
        const QString out = read({u"-raw"_s});
        for (const QChar letter : u"abcdef"_s)
            QVERIFY2(out.contains(letter), qPrintable(out));
    }

    void linesKeepTheirPlaceAndJapaneseRules()
    {
        QCOMPARE(write(prose() + u"\n"_s + u"x"_s.repeated(2000)), PdfResult::Written);
        const QString noBegin = u"、。」）？！ーっゃゅょァィ…"_s;
        const QString noEnd = u"「（"_s;
        for (const QString &line : read({u"-raw"_s}).split(u'\n', Qt::SkipEmptyParts)) {
            const QString text = line.trimmed();
            QVERIFY2(text.isEmpty() || !noBegin.contains(text.front()), qPrintable(line));
            QVERIFY2(text.isEmpty() || !noEnd.contains(text.back()), qPrintable(line));
        }
        const auto all = words();
        for (const auto &[word, place] : all)
            QVERIFY2(QRectF(20, 20, 556.01, 802).contains(place), qPrintable(word)); // half a square hangs
        QVERIFY(all.size() > 50);
    }

    void tabsBringWordsUnderEachOther()
    {
        QCOMPARE(write(u"a\tb\tc\nlonger\td\te"_s), PdfResult::Written);
        const auto all = words();
        QCOMPARE(all.size(), 6);
        std::map<QString, double> left;
        for (const auto &[word, place] : all)
            left[word] = place.left();
        QCOMPARE(left[u"b"_s], left[u"d"_s]);
        QCOMPARE(left[u"c"_s], left[u"e"_s]);
        QVERIFY(left[u"a"_s] + 20 < left[u"b"_s] && left[u"b"_s] + 20 < left[u"c"_s]);
    }

    void whatIsWrittenFromTheRightBeginsThere()
    {
        for (const QString &text : {u"ߒߞߏ abc"_s, u"سلام abc"_s}) {
            write(text);
            QVERIFY(qAbs(words().front().second.right() - 570) < 1
                    || qAbs(words().back().second.right() - 570) < 1);
        }
        QCOMPARE(write(u"שלום עולם 123 abc"_s), PdfResult::Written);
        auto all = words();
        std::sort(all.begin(), all.end(),
                  [](const auto &a, const auto &b) { return a.second.left() > b.second.left(); });
        // The reader tells of the letters from left to right.
        const auto asSeen = [](QString word) {
            std::reverse(word.begin(), word.end());
            return word;
        };
        QString fromTheRight;
        for (const auto &[word, place] : all)
            fromTheRight += asSeen(word);
        QCOMPARE(fromTheRight, u"שלוםעולם"_s + asSeen(u"123"_s) + asSeen(u"abc"_s));
        QVERIFY(qAbs(all.front().second.right() - 570) < 1);

        QString pointed = u"שָׁלוֹם"_s; // readers disagree on where the points belong, not on which there are
        QCOMPARE(write(pointed), PdfResult::Written);
        QString out = withoutBlanks(read({u"-raw"_s})).remove(m_directions);
        std::sort(pointed.begin(), pointed.end());
        std::sort(out.begin(), out.end());
        QCOMPARE(out, pointed);
    }

    void pagesAreTheOnesAskedFor_data()
    {
        const QString a = u"a\r\n"_s.repeated(20), b = u"b\r"_s.repeated(20);
        cases<QString, PdfSettings, QString>({
            {"an empty text is an empty page", {}, {}, u"|"_s},
            {"a form feed begins a page", u"a\fb\f\fc"_s, {}, u"a|b||c|"_s},
            {"a page of their own for two lines", u"a\nb\n"_s, {}, u"ab|"_s},
            {"a page full of lines, whatever ends them", a + b, {}, withoutBlanks(a + b) + u'|'},
            {"copies, one after the other", u"a\fb"_s, {.copies = 2}, u"a|b|a|b|"_s},
            {"copies, page by page", u"a\fb"_s, {.copies = 2, .collated = false}, u"a|a|b|b|"_s},
            {"the last page first", u"a\fb\fc"_s, {.lastFirst = true}, u"c|b|a|"_s},
            {"nothing follows the last form feed", u"a\f"_s, {}, u"a|"_s},
            {"from the second page on", u"a\fb\fc"_s, {.ranges = {{2, 3}}}, u"b|c|"_s},
        });
    }
    void pagesAreTheOnesAskedFor()
    {
        const auto [text, settings, expected] = values<QString, PdfSettings, QString>();
        QCOMPARE(write(text, settings), PdfResult::Written);
        QCOMPARE(withoutBlanks(read({u"-raw"_s}).replace(u'\f', u'|')), expected);
    }

    void aNarrowSheetGetsNarrowLines()
    {
        PdfSettings settings;
        settings.format.width = 200;
        QCOMPARE(write(prose(), settings), PdfResult::Written);
        const QString firstLine = read({u"-raw"_s}).section(u'\n', 0, 0);
        QVERIFY2(firstLine.size() >= 11 && firstLine.size() <= 13, qPrintable(firstLine)); // 160 points
        settings.format = {.width = 842, .height = 595};
        write(prose(), settings);
        QVERIFY(said(u"pdfinfo"_s, {m_file}).contains(u" 842 x 595 "_s));
    }

    void noTextTakesForEver()
    {
        QCOMPARE(write(u"\f"_s.repeated(100'000) + u"a"_s), PdfResult::Written);
        QVERIFY(contentOf(m_file).size() < 1'500'000);
        QVERIFY(isSound());
        QCOMPARE(write(u"a"_s, {.copies = 10'000'000}), PdfResult::Failed); // no reader takes so many pages
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(write(u"א"_s + u"(a"_s.repeated(300'000)), PdfResult::Written);
        QVERIFY2(clock.elapsed() < 5'000, QByteArray::number(clock.elapsed()));
    }

    void cancellingIsAnsweredSoon()
    {
        QString heaps;
        for (char16_t i = 0; i < 60'000; ++i)
            heaps += QChar(u'a' + i % 26) + QString(12, QChar(0x300 + i % 0x70)) + QChar(0x300 + i % 0x61);
        for (const QString &text : {heaps, QString(8'000'000, QChar(0x200d)), prose().repeated(4000)}) {
            PdfProgress progress;
            QElapsedTimer clock;
            std::jthread impatient([&] {
                QTest::qSleep(30);
                clock.start();
                progress.cancelled = true;
            });
            const auto take = [](const char *, std::size_t) { return true; };
            QCOMPARE(writeTextPdf(text.toStdU16String(), {}, take, progress), PdfResult::Cancelled);
            const qint64 taken = clock.elapsed();
            impatient.join();
            QVERIFY2(taken < 500, qPrintable(QString::number(taken) + text.first(10)));
        }
    }

    void workEndsWhenItIsCancelledOrNothingIsTaken()
    {
        const std::u16string text(2'000'000, u'あ');
        PdfProgress progress;
        progress.cancelled = true;
        std::size_t taken = 0;
        const auto count = [&](const char *, std::size_t more) {
            taken += more;
            return taken < 100;
        };
        QCOMPARE(writeTextPdf(text, {}, count, progress), PdfResult::Cancelled);
        QCOMPARE(taken, 0u);
        QCOMPARE(progress.pages.load(), 0);
        progress.cancelled = false;
        QCOMPARE(writeTextPdf(text.substr(0, 1000), {}, count, progress), PdfResult::Failed);
    }
};

QTEST_GUILESS_MAIN(PdfTest)
#include "pdf_test.moc"
