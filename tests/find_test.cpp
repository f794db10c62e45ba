#include "Testing.h"
#include "reading/FindBar.h"
#include "reading/FontSize.h"
#include "reading/TextPane.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include <QRandomGenerator>
#include <algorithm>

class FindTest : public QObject {
    Q_OBJECT

    ReadingText m_text;
    State<double> m_size{FontSize::initial};

private slots:
    // What is found stands between brackets.
    void aTextIsComparedAsAReaderDoes_data()
    {
        cases<QString, QString, QString>({
            {"letter case", u"tower"_s, u"[Tower]、[TOWER]"_s, u"Tower、TOWER"_s},
            {"width", u"PDF10"_s, u"[ＰＤＦ１０]と[pdf10]"_s, u"ＰＤＦ１０とpdf10"_s},
            {"kana", u"かたかな"_s, u"[カタカナ]と[かたかな]と[ｶﾀｶﾅ]"_s, u"カタカナと[かたかな]とｶﾀｶﾅ"_s},
            {"kana to the last", u"ぁをんゔゕゖ"_s, u"[ァヲンヴヵヶ]"_s, u"ァヲンヴヵヶ"_s},
            {"voiced in two", u"ガイド"_s, u"[ｶﾞｲﾄﾞ]、[か\u3099いと\u3099]、カイト"_s,
             u"ｶﾞｲﾄﾞ、か\u3099いと\u3099、カイト"_s},
            {"unvoiced", u"か"_s, u"[か]が[カ]ガｶﾞか\u3099"_s, u"[か]がカガｶﾞ[か]\u3099"_s},
            {"small kana differ", u"かつこ"_s, u"かっこ、[カツコ]"_s, u"かっこ、カツコ"_s},
            {"accents", u"café"_s, u"[CAFE\u0301]、[Café]、cafe"_s, u"CAFE\u0301、Café、cafe"_s},
            {"a variant of a character", u"葛城"_s, u"[葛\U000e0100城]、[葛城]"_s,
             u"葛\U000e0100城、[葛城]"_s},
            {"a part of such a one, at the beginning", u"株式"_s, u"[㍿]と[株式]、株 式"_s,
             u"㍿と[株式]、株 式"_s},
            {"one that stands for several", u"キロ"_s, u"五[㌔]、[キロ]"_s, u"五㌔、[キロ]"_s},
            {"waves and strokes", u"1~2-3"_s, u"[１～２－３]、[1〜2−3]"_s, u"１～２－３、1〜2−3"_s},
            {"emoji", u"🐱"_s, u"[🐱][🐱]"_s, u"[🐱][🐱]"_s},
            {"none over another", u"ああ"_s, u"[ああ][ああ]あ"_s, u"[ああ][ああ]あ"_s},
            {"nothing", u""_s, u"あ"_s, u"あ"_s},
        });
    }
    void aTextIsComparedAsAReaderDoes()
    {
        const auto [wanted, alike, exactly] = values<QString, QString, QString>();
        for (const auto &[marked, isExact] : {std::pair(alike, false), std::pair(exactly, true)}) {
            QString text = marked;
            text.remove(u'[').remove(u']');
            QString found = text;
            auto hits = TextPattern(wanted, isExact).hitsIn(text);
            for (auto hit = hits.rbegin(); hit != hits.rend(); ++hit)
                found.insert(hit->end, u']').insert(hit->start, u'[');
            QCOMPARE(found, marked);
        }
    }

    // Wherever it begins, and whatever the seams are.
    void everyHitIsFoundOnceAndInOrder()
    {
        QRandomGenerator random(5);
        QString text;
        while (text.size() < 400'000)
            text += random.bounded(4000) == 0 ? u"\n"_s
                : random.bounded(3000) == 0   ? u"さがしもの"_s
                                              : u"が"_s;
        enter(m_text, text);
        QVERIFY(m_text.document().blockCount() > 1500);
        const TextPattern pattern(u"サガシモノ"_s, false);
        const auto expected = pattern.hitsIn(text);
        TextSearch search(m_text);
        const int cut = expected[expected.size() / 2].start + 2; // a hit that two stretches share
        for (const int from : {0, 1, 16 << 10, cut - (16 << 10), cut + (16 << 10), 399'999, 400'004}) {
            search.start(pattern, from);
            QTRY_VERIFY(search.isDone());
            QCOMPARE(search.count(), int(expected.size()));
            int number = 0;
            for (const auto &hit : expected) {
                QCOMPARE(search.next(hit.start)->hit, hit);
                QCOMPARE(search.previous(hit.end)->hit, hit);
                QCOMPARE(search.number(hit), ++number);
            }
            QCOMPARE(search.next(expected.back().end)->hit, expected.front());
            QVERIFY(search.next(expected.back().end)->isWrapped);
            QVERIFY(search.previous(expected.front().start)->isWrapped);
            QCOMPARE(search.previous(expected.front().start)->hit, expected.back());
        }
    }

    void theBarFindsWhatIsTypedAndGoesRound()
    {
        QWidget window;
        window.resize(900, 300);
        auto *pane = new TextPane(m_text, m_size);
        pane->setParent(&window);
        pane->resize(900, 200);
        FindBar bar(*pane);
        bar.setParent(&window);
        window.show();
        pane->moveCursor(QTextCursor::Start);
        bar.open();
        auto *field = bar.findChild<QLineEdit *>();
        const auto *status = bar.findChild<QLabel *>();
        const auto found = [&](const QString &text, const QString &says) {
            QTRY_COMPARE(status->text(), says);
            QCOMPARE(pane->textCursor().selectedText(), text);
        };
        field->setText(u"とり"_s);

        m_text.setValue(u"とりとり"_s); // the text changes under it
        QTRY_COMPARE(pane->extraSelections().size(), 2);
        QTRY_COMPARE(status->text(), u"2 件"_s);
        bar.findPrevious();
        found(u"とり"_s, u"2 件中 2 件目（末尾から検索）"_s);
        m_text.setValue(u"とり\n"_s.repeated(500) + u"とり"_s);
        QTRY_COMPARE(status->text(), u"501 件"_s);
        QScrollBar *scroll = pane->verticalScrollBar();
        scroll->setValue(scroll->maximum()); // what comes into view is marked, too
        const auto isMarked = [&](const QTextEdit::ExtraSelection &mark) {
            return mark.cursor.selectionEnd() == pane->document()->characterCount() - 1;
        };
        QTRY_VERIFY(std::ranges::any_of(pane->extraSelections(), isMarked));
        m_text.setValue(u"とり"_s);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(!bar.isVisible() && pane->hasFocus() && pane->extraSelections().isEmpty());
        bar.open(); // with what is selected
        QCOMPARE(field->text(), u"とり"_s);
        m_text.setValue(u"いぬ\nねこ"_s);
        pane->selectAll();
        bar.open(); // but not with lines
        QCOMPARE(field->text(), u"とり"_s);
    }

    void aKeyEndsTheSearchUnderWay()
    {
        enter(m_text, u"長い文章の一行。\n"_s.repeated(300'000));
        TextSearch search(m_text);
        QSignalSpy progressed(&search, &TextSearch::progressed);
        search.start(TextPattern(u"一行"_s, false), 2'000'000);
        QVERIFY(progressed.wait());
        QVERIFY(!search.isDone() && search.next(2'000'000)->hit); // the first hit is there
        search.start(TextPattern(u"無い"_s, false), 0);
        QTRY_VERIFY(search.isDone());
        QCOMPARE(search.count(), 0);
        search.start(TextPattern(u"一"_s, false), 0);
        search.stop();
        progressed.clear();
        hearFrom(Workers::computing());
        QVERIFY(progressed.isEmpty());
    }
};

QTEST_MAIN(FindTest)
#include "find_test.moc"
