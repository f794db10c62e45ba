#include "Testing.h"
#include "pdf/PngPixels.h"
#include "pdf/TextPdf.h"

#include <QColor>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>

#include <algorithm>
#include <map>

// What is in the documents is asked of a reader that has nothing in common with their maker.
class PdfTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
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
        QProcess reader;
        reader.start(u"pdftotext"_s, how + QStringList{m_file, u"-"_s});
        reader.waitForFinished();
        return reader.exitCode() == 0 ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
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
    }

    void emojiAreInColour()
    {
        for (const QString &text : {u"😀"_s, u"❤️"_s, u"note2️⃣self"_s, u"🇯🇵"_s}) {
            QCOMPARE(write(text), PdfResult::Written);
            const QString picture = m_folder.filePath(u"page"_s);
            QCOMPARE(QProcess::execute(u"pdftoppm"_s,
                                       {u"-r"_s, u"40"_s, u"-singlefile"_s, u"-png"_s, m_file, picture}),
                     0);
            const QImage page(picture + u".png"_s);
            int coloured = 0;
            for (int y = 0; y < page.height(); ++y) {
                for (int x = 0; x < page.width(); ++x)
                    coloured += QColor(page.pixel(x, y)).saturation() > 60;
            }
            QVERIFY2(coloured > 3, qPrintable(text));
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
        QCOMPARE(write(u"שלום עולם 123 abc"_s), PdfResult::Written);
        auto all = words();
        std::sort(all.begin(), all.end(),
                  [](const auto &a, const auto &b) { return a.second.left() > b.second.left(); });
        // The reader tells of the letters from left to right.
        const auto asSeen = [](QString word) {
            std::reverse(word.begin(), word.end());
            return word;
        };
        QStringList fromTheRight;
        for (const auto &[word, place] : all)
            fromTheRight += word;
        QCOMPARE(fromTheRight, QStringList({asSeen(u"שלום"_s), asSeen(u"עולם"_s), u"123"_s, u"abc"_s}));
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
        const auto fromTheSecond = [](int page) { return page >= 2; };
        cases<QString, PdfSettings, QString>({
            {"an empty text is an empty page", {}, {}, u"|"_s},
            {"a form feed begins a page", u"a\fb\f\fc"_s, {}, u"a|b||c|"_s},
            {"a page of their own for two lines", u"a\nb\n"_s, {}, u"ab|"_s},
            {"a page full of lines, whatever ends them", a + b, {}, withoutBlanks(a + b) + u'|'},
            {"copies, one after the other", u"a\fb"_s, {.copies = 2}, u"a|b|a|b|"_s},
            {"copies, page by page", u"a\fb"_s, {.copies = 2, .collated = false}, u"a|a|b|b|"_s},
            {"the last page first", u"a\fb\fc"_s, {.lastFirst = true}, u"c|b|a|"_s},
            {"from the second page on", u"a\fb\fc"_s, {.wants = fromTheSecond}, u"b|c|"_s},
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
        QCOMPARE(progress.pages.load(), 1);
        progress.cancelled = false;
        QCOMPARE(writeTextPdf(text.substr(0, 1000), {}, count, progress), PdfResult::Failed);
    }
};

QTEST_GUILESS_MAIN(PdfTest)
#include "pdf_test.moc"
