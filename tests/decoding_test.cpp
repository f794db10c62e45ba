#include "Testing.h"
#include "decoding/TextDecoding.h"
#include "decoding/Utf8.h"

#include <QUtf8StringView>

#include <array>

class DecodingTest : public QObject {
    Q_OBJECT

private slots:
    void aTextIsDecodedWhateverItsEncoding()
    {
        const QByteArray shiftJis("92a9814196da82aa8a6f82df82bd82cc82c5918b82f08a4a82af82bd8142");
        const QString morning = u"朝、目が覚めたので窓を開けた。"_s;
        const std::tuple<const char *, QByteArray, QString> texts[]{
            {"nothing", "", u""_s},
            {"UTF-8 with its mark", "efbbbfe69c9d", u"朝"_s},
            {"UTF-8 with a stray zero", "e69c9de381ae00e8a898e98cb2", u"朝の\0記録"_s},
            {"nothing but zeros", QByteArray("00").repeated(4096), QString(4096, u'\0')},
            {"a terminal's colours", "1b5b33316de69c9d1b28421b5b6d", u"\x1b[31m朝\x1b(B\x1b[m"_s},
            {"Shift_JIS", shiftJis, morning},
            {"EUC-JP", "c4aba1a2ccdca4acb3d0a4e1a4bfa4cea4c7c1eba4f2b3aba4b1a4bfa1a3", morning},
            {"ISO-2022-JP", "1b2442442b21224c5c242c33502461243f244e2447416b2472332b2431243f21231b2842",
             morning},
            {"its first edition", "1b244024221b2842", u"あ"_s},
            {"its Latin letters, after others", "1b2842611b284a5c1b2842", u"a¥"_s},
            {"its narrow letters", "1b2849311b2842", u"ｱ"_s},
            {"its rarer ideographs", "1b242844305d1b2842", u"伮"_s},
            {"nothing but the end of an escape", "611b2842", u"a\x1b(B"_s},
            {"UTF-32 with its mark", "fffe00001d670000", u"朝"_s},
            {"UTF-16 without", "671d306e98a8306f000a", u"朝の風は\n"_s},
            {"UTF-16 whose bytes would be UTF-8", "480065006c006c006f002c00200077006f0072006c0064000a00",
             u"Hello, world\n"_s},
            {"half-width kana", "c3deb0c020a620cebfdedd20bccfbcc0", u"ﾃﾞｰﾀ ｦ ﾎｿﾞﾝ ｼﾏｼﾀ"_s},
            {"a vendor's additions to the standard", "8740878aeee0ed9582b382f182cc8782825681608756",
             u"①㈱髙﨑さんの№７～Ⅲ"_s},
            {"characters with two names", "8be38e9e81608cdc8e9e8141817c82529378", u"九時〜五時、−３度"_s},
            {"signs with two names, and the mark of the end that DOS set",
             shiftJis + "816135819182c6338192814181ca4181421a", morning + u"‖5¢と3£、¬A。\x1a"_s},
            {"simplified Chinese", "c7ebcfc8b1a3b4e6cec4bcfea3acc8bbbaf3d6d8d0c2c6f4b6afb3ccd0f2a1a3",
             u"请先保存文件，然后重新启动程序。"_s},
            {"Russian, told by its small letters", "f3cfc8d2c1cec9d4c520c6c1cacc20c5dda320d2c1da2e",
             u"Сохраните файл ещё раз."_s},
            {"French", "4c65206368e274656175206ff9206c92e974e9207392616368e87665",
             u"Le château où l’été s’achève"_s},
        };
        for (const auto &[name, hex, text] : texts)
            QVERIFY2(decodedText(QByteArray::fromHex(hex)) == text, name);
    }

    void anEncodingThatSomebodyTellsIsTakenAtTheirWord()
    {
        const QByteArray shiftJis("\x92\xa9\x82\xcc");
        QCOMPARE(decodedText(shiftJis, "windows-31j"), u"朝の"_s);
        QCOMPARE(decodedText(shiftJis, "windows-1251"), u"’©‚М"_s);
        QCOMPARE(decodedText("\xff\xfe\x1d\x67", "UTF-16LE"), u"朝"_s);
        QCOMPARE(decodedText("\xef\xbb\xbf朝", "UTF-8"), u"朝"_s);
        for (const char *other : {"UTF-8", "EUC-JP", "UTF-32LE", "no such thing"})
            QVERIFY2(!decodedText(shiftJis + "\xa9", other), other);
    }

    void whatComesLateIsHeardToo()
    {
        QVERIFY(decodedText(QByteArray("abc ").repeated(20'000) + "\xf0\xd2\xc9\xd7\xc5\xd4, \xcd\xc9\xd2")
                    ->endsWith(u"Привет, мир"_s));
        const auto decoded = decodedText(QByteArray(100'000, '-') + "\x92\xa9\x82\xcc\x8b\x4c\x98\x5e\r\n");
        QCOMPARE(decoded, QString(100'000, u'-') + u"朝の記録\r\n"_s);
    }

    void ofALargeTextNothingIsLostInTheMiddle()
    {
        const auto line =
            QByteArray::fromHex("92a9814196da82aa8a6f82df82bd82cc82c5918b82f08a4a82af82bd81420a");
        QCOMPARE(decodedText(line.repeated(40'001)),
                 u"朝、目が覚めたので窓を開けた。\n"_s.repeated(40'001));
        // What only its second half tells.
        const QByteArray latin = QByteArray("abc\n").repeated(400'000);
        const QString text = QString::fromLatin1(latin);
        QVERIFY(decodedText(latin + "\x1b$B$\"\x1b(B") == text + u"あ"_s);
        QVERIFY(decodedText(latin + QByteArray::fromHex("8be38e9e81608cdc8e9e8141817c"))
                == text + u"九時〜五時、−"_s);
        QVERIFY(!decodedText(QByteArray("朝の記録").repeated(100'000).chopped(1)));
    }

    void whatIsUtf8IsWhatQtSays()
    {
        // Each begins and ends a range: of bytes that lead, that follow, and that never are.
        const QByteArray bytes = QByteArray::fromHex("00417f808f909fa0bfc0c1c2dfe0e1ecedeeeff0f1f3f4f5ff");
        const QByteArray before = QByteArray("0123456789abcdef") + QByteArray("の").repeated(9);
        std::array<int, 2> count{};
        const auto digits = bytes.size();
        for (qsizetype i = 0; i < digits * digits * digits * digits; ++i) {
            QByteArray text = before;
            for (qsizetype rest = i, n = 0; n < 4; ++n, rest /= digits)
                text += bytes[rest % digits];
            const bool valid = QUtf8StringView(text.data(), text.size()).isValidUtf8();
            ++count.at(valid ? 1 : 0);
            if (isValidUtf8(text) != valid)
                QCOMPARE(text.toHex(), valid ? "to be valid" : "to be invalid");
        }
        QVERIFY(count[0] > 100'000 && count[1] > 200);
    }

    void halfATextIsNone()
    {
        const QByteArray utf8("朝早く目が覚めたので、窓を開けた。");
        const auto eucJp = QByteArray::fromHex("a4b3a4cecbdca4cfc6c9a4dfa4dea4b7a4bfa1a3");
        const std::pair<const char *, QByteArray> halves[]{
            {"UTF-8 whose end is cut off", utf8.chopped(1)},
            {"UTF-8 with a byte lost on the way", utf8.left(10) + utf8.mid(11) + " abc\n"},
            {"EUC-JP with a byte lost late", eucJp.repeated(9000).remove(179'000, 1)},
            {"UTF-16 with an odd byte", {"\xff\xfe\x42\x30\x44", 5}},
            {"UTF-16 with half a pair", {"\xfe\xff\xd8\x3d\x30\x42", 6}},
            {"a picture", {"\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\1\0\0\0\1\0", 25}},
        };
        for (const auto &[name, bytes] : halves)
            QVERIFY2(!decodedText(bytes), name);
    }
};

QTEST_APPLESS_MAIN(DecodingTest)
#include "decoding_test.moc"
