#include "Testing.h"
#include "decoding/Encodings.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"
#include "reading/EncodingMenu.h"
#include "reading/FontSize.h"
#include "reading/OpeningMessage.h"
#include "reading/Patience.h"
#include "reading/TextLoading.h"
#include "reading/TextPane.h"
#include "reading/WordStep.h"

#include <QMenu>
#include <QMimeData>

namespace {

// A panel that answers what the test says.
class ScriptedPanel : public OpenPanel {
public:
    void runModal(std::function<void(ModalResponse)> ended) override { answer = std::move(ended); }
    std::optional<QUrl> url() const override { return picked; }

    std::function<void(ModalResponse)> answer;
    std::optional<QUrl> picked;
};

class Pane : public TextPane {
public:
    using TextPane::insertFromMimeData;
    using TextPane::TextPane;
};

} // namespace

class ReadingTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.filePath(u"Tarumine.conf"_s)};
    ScriptedPanel m_panel;
    ReadingText m_text;
    State<qint64> m_sp1, m_sp2;
    const State<double> m_size{14};
    TextLoading m_loading{m_text, m_sp1, m_sp2, m_store, [this](QWidget *) { return &m_panel; }};

    QString write(const QString &name, const QByteArray &content) const
    {
        return written(m_folder.filePath(name), content);
    }

    void pick(const QString &path)
    {
        m_loading.openText(nullptr);
        m_panel.picked = QUrl::fromLocalFile(path);
        m_panel.answer(ModalResponse::OK);
    }

    static void finishReading() { hearFrom(Workers::waiting()); }

private slots:
    void theOpeningMessageIsByteForByte()
    {
        QCOMPARE(openingMessage().size(), 133);
        QCOMPARE(openingMessage().toUtf8().size(), 377);
        QVERIFY(openingMessage().contains(u"コピー＆ペースト"));
        QVERIFY(openingMessage().endsWith(u"簡易PDF出力（仮）が可能です。"));
    }

    void anEditIsTheTextAtOnce()
    {
        TextPane pane(m_text, m_size);
        m_text.setValue(u"一\r\n二"_s);
        QTest::keyClick(&pane, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&pane, u"abc"_s);
        QCOMPARE(m_text.value(), u"一\n二abc"_s);
        pane.undo();
        QCOMPARE(m_text.value(), u"一\n二"_s);
    }

    void wordsAreThoseOfAJapaneseReader_data()
    {
        cases<QString>({
            {"kanji and kana", u"図書館|で|本|を|読む|。"_s},
            {"hiragana between them", u"私|は|猫|です|。|名前|は|まだ|無い|。"_s},
            {"Latin among them", u"Qt| |6|で|don't| |「|PDF|」|を|作る"_s},
            {"emoji of several characters", u"家族|👨‍👩‍👧‍👦|🐱|🇯🇵|と"_s},
            {"lines and blanks", u"一行|\n|\n|　　|二|行|\n"_s},
        });
    }
    void wordsAreThoseOfAJapaneseReader()
    {
        const auto [divided] = values<QString>();
        const QStringList words = divided.split(u'|');
        const QString text = words.join(QString());
        TextPane pane(m_text, m_size);
        m_text.setValue(text);
        pane.moveCursor(QTextCursor::Start);
        int place = 0;
        QList<int> stops{0};
        for (const QString &word : words) {
            for (const qsizetype within : {qsizetype(0), word.size() - 1})
                QCOMPARE(wordAround(m_text.document(), place + int(within)).selectedText().size(),
                         word.size());
            place += int(word.size());
            const bool isFollowedByBlank =
                place < text.size() && text[place].isSpace() && text[place] != u'\n';
            if (!isFollowedByBlank)
                stops += place;
        }
        const auto press = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
            QTest::keyClick(&pane, Qt::Key(key), Qt::ControlModifier | modifiers);
            return pane.textCursor().position();
        };
        for (qsizetype i = 1; i < stops.size(); ++i)
            QCOMPARE(press(Qt::Key_Right), stops[i]);
        const int end = pane.textCursor().position();
        press(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(pane.textCursor().anchor(), end);
        QCOMPARE(press(Qt::Key_Right), end);
        QCOMPARE(press(Qt::Key_Backspace), text.size() - words.last().size());
        pane.undo();
        QCOMPARE(m_text.value(), text);
        pane.moveCursor(QTextCursor::Start);
        press(Qt::Key_Delete);
        QCOMPARE(m_text.value(), text.mid(stops[1]));
        pane.selectAll();
        press(Qt::Key_Left, Qt::ShiftModifier);
        press(Qt::Key_Delete); // what is selected, whatever stands behind it
        QCOMPARE(m_text.value(), words.last());
    }

    void aFileIsReadAgainInTheEncodingThatIsChosen()
    {
        TextLoading loading{m_text, m_sp1, m_sp2, m_store, {}};
        QSignalSpy unfit(&loading, &TextLoading::unfit);
        QMenu menu;
        fillEncodingMenu(menu, loading);
        const auto choose = [&](const QByteArray &encoding) {
            emit menu.aboutToShow();
            for (QAction *item : menu.actions()) {
                if (!item->isSeparator() && item->data().toByteArray() == encoding)
                    item->trigger();
            }
            finishReading();
            emit menu.aboutToShow();
            for (QAction *item : menu.actions()) {
                if (item->isChecked())
                    return item->data().toByteArray();
            }
            return QByteArray("none");
        };
        QCOMPARE(choose("UTF-8"), QByteArray("none")); // before there is a file
        loading.openFiles({QUrl::fromLocalFile(write(u"kana.txt"_s, "\xa4\xab\xa4\xca"))});
        finishReading();
        QCOMPARE(choose("EUC-JP"), QByteArray("EUC-JP"));
        QCOMPARE(m_text.value(), u"かな"_s);
        QCOMPARE(choose("windows-31j"), QByteArray("windows-31j"));
        QCOMPARE(m_text.value(), u"､ｫ､ﾊ"_s);
        QVERIFY(unfit.isEmpty());
        QCOMPARE(choose("UTF-8"), QByteArray("windows-31j")); // which it isn't
        QCOMPARE(m_text.value(), u"､ｫ､ﾊ"_s);
        QCOMPARE(unfit.size(), 1);
        loading.openFiles({QUrl::fromLocalFile(write(u"next.txt"_s, "次"))});
        finishReading();
        QCOMPARE(choose("nothing of this name"), QByteArray());
        QSet<QByteArray> offered;
        for (const QAction *item : menu.actions())
            offered += item->data().toByteArray();
        QCOMPARE(titled(u"UTF-16（リトル"_s, menu.actions())->data().toByteArray(), "UTF-16LE");
        for (const Encoding &encoding : encodings())
            QVERIFY2(offered.contains(encoding.name), encoding.name);
    }

    void whatCannotBeReadChangesNothing()
    {
        m_text.setValue(u"前"_s);
        for (const QString &path : {write(u"cut.txt"_s, "\xe6\x9c\x9d\xe3\x81"), m_folder.path(),
                                    u"/dev/zero"_s, m_folder.filePath(u"gone.txt"_s), QString()}) {
            pick(path);
            finishReading();
            QCOMPARE(m_text.value(), u"前"_s);
        }
    }

    void theLastAssignmentWins()
    {
        const QString slow = write(u"slow.txt"_s, QByteArray(5 << 20, 'a'));
        const QString quick = write(u"quick.txt"_s, "速い");
        pick(slow);
        pick(quick);
        finishReading();
        QCOMPARE(m_text.value(), u"速い"_s);

        pick(slow);
        m_text.setValue(u"動作中"_s); // put there after the file was picked
        finishReading();
        QCOMPARE(m_text.value(), u"動作中"_s);
    }

    void aStepBackIsWhatAPersonDidInOneGo()
    {
        Pane pane(m_text, m_size);
        m_text.setValue(u"前"_s);
        pane.moveCursor(QTextCursor::End);
        QMimeData pasted;
        pasted.setText(u"貼"_s);
        const std::function<void()> deeds[]{
            [&] { QTest::keyClicks(&pane, u"one two"_s); },
            [&] { pane.insertFromMimeData(&pasted); },
            [&] { QTest::keyClicks(&pane, u"three"_s); },
            [&] {
                QTest::keyClick(&pane, Qt::Key_Left);
                QTest::keyClick(&pane, Qt::Key_Right);
                QTest::keyClicks(&pane, u"four"_s);
            },
            [&] {
                pane.selectAll();
                QTest::keyClicks(&pane, u"instead"_s);
            },
            [&] {
                for (int i = 0; i < 3; ++i)
                    QTest::keyClick(&pane, Qt::Key_Backspace);
            },
            [&] { QTest::keyClick(&pane, Qt::Key_Return); },
        };
        QStringList states;
        for (const auto &deed : deeds) {
            states.prepend(m_text.value());
            deed();
        }
        for (const QString &state : states) {
            pane.undo();
            QCOMPARE(m_text.value(), state);
        }
    }

    void whatIsTypedWhileAFileLoadsIsTypedIntoIt()
    {
        TextPane pane(m_text, m_size);
        connect(&m_loading, &TextLoading::began, &pane, [&] { pane.patience().begin(u"…"_s); });
        connect(&m_loading, &TextLoading::ended, &pane, [&] { pane.patience().end(); });
        connect(&pane.patience(), &Patience::givenUp, &m_loading, &TextLoading::stop);
        m_text.setValue(u"前"_s);
        pick(write(u"new.txt"_s, "新しい文章"));
        QTest::keyClicks(&pane, u"ab"_s);
        QTest::keyClick(&pane, Qt::Key_Delete);
        QInputMethodEvent composed;
        composed.setCommitString(u"漢字"_s);
        QCoreApplication::sendEvent(&pane, &composed);
        QCOMPARE(m_text.value(), u"前"_s);
        finishReading();
        QCOMPARE(m_text.value(), u"ab漢字しい文章"_s);

        pick(write(u"other.txt"_s, "他の文章"));
        QTest::keyClicks(&pane, u"x"_s);
        QTest::keyClick(&pane, Qt::Key_Escape); // and nobody waits any longer
        QCOMPARE(m_text.value(), u"ab漢字xしい文章"_s);
        finishReading();
        QCOMPARE(m_text.value(), u"ab漢字xしい文章"_s);
    }

    void aLargePasteIsOneStepAndLosesNoKey()
    {
        ReadingText text;
        Pane pane(text, m_size);
        text.setValue(u"前中後"_s);
        QTest::keyClick(&pane, Qt::Key_Right);
        QTest::keyClick(&pane, Qt::Key_Right, Qt::ShiftModifier);
        QMimeData large;
        large.setText(u"一行の文\n"_s.repeated(400'000));
        pane.insertFromMimeData(&large);
        QTest::keyClicks(&pane, u"xy"_s);
        QTRY_COMPARE(text.value().size(), large.text().size() + 4);
        QVERIFY(text.value() == u"前"_s + large.text() + u"xy後"_s);
        while (text.value() != u"前中後"_s && text.canUndo().value())
            pane.undo();
        QCOMPARE(text.value(), u"前中後"_s);
        QCOMPARE(pane.textCursor().selectedText(), u"中"_s);
    }

    void aLoadWhoseWindowIsGoneEndsQuietly()
    {
        auto text = std::make_unique<ReadingText>();
        auto loading = std::make_unique<TextLoading>(*text, m_sp1, m_sp2, m_store,
                                                     [this](QWidget *) { return &m_panel; });
        loading->openText(nullptr);
        m_panel.picked = QUrl::fromLocalFile(write(u"b.txt"_s, QByteArray(1 << 20, 'b')));
        m_panel.answer(ModalResponse::OK);
        loading.reset();
        text.reset();
        finishReading();
    }
};

QTEST_MAIN(ReadingTest)
#include "reading_test.moc"
