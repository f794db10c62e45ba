#include "Testing.h"
#include "decoding/Encodings.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"
#include "reading/EncodingMenu.h"
#include "reading/FontSize.h"
#include "reading/OpeningMessage.h"
#include "reading/Patience.h"
#include "reading/SizeGestures.h"
#include "reading/TextLoading.h"
#include "reading/TextPane.h"
#include "reading/WordStep.h"
#include "view/OpenPanel.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMimeData>
#include <QWheelEvent>

namespace {

// A panel that answers what the test says.
class ScriptedPanel : public OpenPanel {
public:
    void runModal(std::function<void(ModalResponse)> ended) override { answer = std::move(ended); }
    std::optional<QUrl> url() const override { return picked; }
    QStringList types() const { return m_allowedFileTypes; }
    bool picksOneFileOnly() const
    {
        return !m_allowsMultipleSelection && !m_canChooseDirectories && m_canChooseFiles;
    }

    std::function<void(ModalResponse)> answer;
    std::optional<QUrl> picked;
};

class Pane : public TextPane {
public:
    using TextPane::canInsertFromMimeData;
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

    void theTextIsWhatWasAssigned()
    {
        for (const QString &text :
             {u""_s, u"一\n\n三\n"_s, u"a\u00a0b　c\u3000"_s, u"\ufdd0\ufdd1\ufffe\ufffc"_s,
              u"a\0\ufeffb"_s, u"a\r\nb\rc\nd\u0085e\u2028f\u2029g\vh\fi"_s,
              u"🐱👨‍👩‍👧"_s + QChar(0xd83d)}) {
            m_text.setValue(text);
            QCOMPARE(m_text.value(), text);
        }
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

    void aDoubleClickTakesAWordAndADragMore()
    {
        TextPane pane(m_text, m_size);
        m_text.setValue(u"私は図書館で本を読む。"_s);
        pane.resize(600, 200);
        pane.show();
        const auto send = [&](QEvent::Type type, double characters, Qt::MouseButton button) {
            QTextCursor character(pane.document());
            character.setPosition(int(characters));
            const double left = pane.cursorRect(character).center().x();
            character.movePosition(QTextCursor::NextCharacter);
            const QRectF next = pane.cursorRect(character);
            const double within = characters - int(characters);
            const QPointF point(left + within * (next.center().x() - left), next.center().y());
            QMouseEvent event(type, point, pane.viewport()->mapToGlobal(point), button, Qt::LeftButton, {});
            QCoreApplication::sendEvent(pane.viewport(), &event);
            return pane.textCursor().selectedText();
        };
        for (const double place : {2.1, 3.5, 4.9}) {
            QCOMPARE(send(QEvent::MouseButtonDblClick, place, Qt::LeftButton), u"図書館"_s);
            QCOMPARE(send(QEvent::MouseMove, 9.5, Qt::NoButton), u"図書館で本を読む"_s);
            QCOMPARE(send(QEvent::MouseMove, 0.5, Qt::NoButton), u"私は図書館"_s);
            send(QEvent::MouseButtonRelease, 0.5, Qt::LeftButton);
        }
    }

    void onlyPlainTextIsPasted()
    {
        ReadingText text;
        Pane pane(text, m_size);
        const QMimeData empty;
        pane.insertFromMimeData(nullptr);
        pane.insertFromMimeData(&empty);
        QVERIFY(!pane.canInsertFromMimeData(nullptr));
        QCOMPARE(text.value(), QString(u""_s));
        QMimeData rich;
        rich.setHtml(u"<b>太い</b>"_s);
        rich.setText(u"太い"_s);
        pane.insertFromMimeData(&rich);
        QCOMPARE(text.value(), u"太い"_s);
        QCOMPARE(pane.textCursor().charFormat().fontWeight(), int(QFont::Normal));
    }

    void theFirstToggleChoosesTheFileType()
    {
        m_store.setInteger(7, Key::IntKeyToggle2);
        m_text.setValue(u"前"_s);
        for (const qint64 stored : {1, 2, -1, 0}) {
            m_store.setInteger(stored, Key::IntKeyToggle1);
            m_loading.openText(nullptr);
            QCOMPARE(m_panel.types(), QStringList(stored == 0 ? u"txt"_s : u"rtf"_s));
            QVERIFY(m_panel.picksOneFileOnly());
            m_panel.answer(ModalResponse::Cancel);
            finishReading();
            QCOMPARE(m_sp1.value(), stored); // read also when nothing is picked then
            QCOMPARE(m_sp2.value(), 7);
            QCOMPARE(m_text.value(), u"前"_s);
        }
    }

    void aPickedFileBecomesTheText()
    {
        QSignalSpy loaded(&m_loading, &TextLoading::ended);
        const std::pair<QString, QByteArray> files[] = {
            {u"日本語 '$;&.txt"_s, "桜の樹の下には\r\n🐱"},
            {u"a.rtf"_s, "{\\rtf1\\ansi \\b bold\\b0}"}, // the source, not what it describes
            {u"empty.txt"_s, ""}};
        for (const auto &[name, content] : files) {
            pick(write(name, content));
            finishReading();
            QCOMPARE(m_text.value(), QString::fromUtf8(content));
        }
        QCOMPARE(loaded.size(), 3);
    }

    void aFileThatIsHandedOverIsLoadedByTheSameRules()
    {
        Pane pane(m_text, m_size);
        connect(&pane, &TextPane::filesGiven, &m_loading, &TextLoading::openFiles);
        const QUrl text = QUrl::fromLocalFile(write(u"given.TXT"_s, "渡した文章"));
        const QUrl rich = QUrl::fromLocalFile(write(u"given.rtf"_s, "{}"));
        const std::tuple<QList<QUrl>, qint64, QString> handed[]{
            {{text}, 0, u"渡した文章"_s}, {{rich}, 0, u"前"_s},
            {{text}, 1, u"前"_s},         {{rich}, 1, u"{}"_s},
            {{text, rich}, 0, u"前"_s},   {{QUrl::fromLocalFile(m_folder.path())}, 0, u"前"_s},
        };
        for (const auto &[urls, toggle, expected] : handed) {
            m_text.setValue(u"前"_s);
            m_store.setInteger(toggle, Key::IntKeyToggle1);
            QMimeData files;
            files.setUrls(urls);
            QVERIFY(pane.canInsertFromMimeData(&files));
            pane.insertFromMimeData(&files);
            finishReading();
            QCOMPARE(m_text.value(), expected);

            m_text.setValue(u"前"_s);
            QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
            QCoreApplication::sendEvent(pane.viewport(), &enter); // without which Qt delivers no drop
            QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
            drop.setDropAction(Qt::MoveAction);
            QCoreApplication::sendEvent(pane.viewport(), &drop);
            QCOMPARE(drop.dropAction(), Qt::CopyAction); // it stays where it is
            finishReading();
            QCOMPARE(m_text.value(), expected);
        }
        m_store.setInteger(0, Key::IntKeyToggle1);
        m_text.setValue({});
        QMimeData page;
        page.setUrls({QUrl(u"https://example.org/a.txt"_s)});
        page.setText(u"https://example.org/a.txt"_s);
        pane.insertFromMimeData(&page);
        QCOMPARE(m_text.value(), page.text());
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

    void theWheelStepsTheSizeWhileCtrlIsHeld()
    {
        State<double> size{FontSize::initial};
        TextPane pane(m_text, size);
        stepSizeOver(pane.viewport(), size);
        const auto turn = [&](int angle, Qt::KeyboardModifiers keys) {
            QWheelEvent event({10, 10}, {10, 10}, {}, {0, angle}, Qt::NoButton, keys, Qt::NoScrollPhase,
                              false);
            QCoreApplication::sendEvent(pane.viewport(), &event);
            return size.value();
        };
        QCOMPARE(turn(240, Qt::NoModifier), 14);
        QCOMPARE(turn(240, Qt::ControlModifier), 16);
        QCOMPARE(turn(60, Qt::ControlModifier), 16); // half a notch
        QCOMPARE(turn(60, Qt::ControlModifier), 17);
        QCOMPARE(turn(-12000, Qt::ControlModifier), 10);
        QCOMPARE(turn(12000, Qt::ControlModifier), 40);
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

    void whatReplacedTheTextIsTakenBackInOneStep()
    {
        ReadingText text;
        TextPane pane(text, m_size);
        pane.resize(300, 100);
        pane.show();
        text.setValue(u"最初"_s);
        QVERIFY(!text.canUndo().value()); // there was nothing before
        QTest::keyClicks(&pane, u"ab"_s);
        text.setValue(u"スレッド動作中"_s);
        text.setValue(u"読み込んだ\r\n文章"_s);
        QTest::keyClicks(&pane, u"c"_s);
        const QStringList steps{u"最初"_s, u"ab最初"_s, u"スレッド動作中"_s, u"読み込んだ\r\n文章"_s,
                                u"c読み込んだ\n文章"_s};
        const auto walk = [&](int from, int to, QKeySequence::StandardKey key) {
            for (int i = from; i != to; i += to > from ? 1 : -1) {
                QCOMPARE(text.value().replace(u"\r\n"_s, u"\n"_s),
                         QString(steps[i]).replace(u"\r\n"_s, u"\n"_s));
                QTest::keySequence(&pane, key);
            }
        };
        walk(4, 0, QKeySequence::Undo);
        QVERIFY(!text.canUndo().value() && text.canRedo().value());
        walk(0, 4, QKeySequence::Redo);
        QVERIFY(!text.canRedo().value());
        walk(4, 1, QKeySequence::Undo);
        QCOMPARE(pane.textCursor().position(), 2); // where it was left
        QTest::keyClicks(&pane, u"d"_s);
        QCOMPARE(text.value(), u"abd最初"_s);
        QVERIFY(!text.canRedo().value());
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

    // Qt's dialog is driven as a person would: by a name typed by hand.
    void aNameTypedByHandIsCheckedToo_data()
    {
        cases<QString, bool>({
            {"the type that is offered", u"a.txt"_s, true},
            {"in another letter case", u"b.TXT"_s, true},
            {"another type", u"c.rtf"_s, false},
            {"no extension", u"txt"_s, false},
            {"a folder", u"folder.txt"_s, false},
        });
    }
    void aNameTypedByHandIsCheckedToo()
    {
        const auto [name, accepted] = values<QString, bool>();
        for (const QString &file : {u"a.txt"_s, u"b.TXT"_s, u"c.rtf"_s, u"txt"_s})
            write(file, "中身");
        QDir(m_folder.path()).mkdir(u"folder.txt"_s);

        QWidget window;
        window.show();
        OpenPanel *panel = newOpenPanel(&window);
        panel->setAllowedFileTypes({u"txt"_s});
        bool ended = false;
        std::optional<QUrl> url;
        panel->runModal([&](ModalResponse response) {
            ended = true;
            url = response == ModalResponse::OK ? panel->url() : std::nullopt;
        });
        QTRY_VERIFY(window.findChild<QFileDialog *>());
        auto *dialog = window.findChild<QFileDialog *>();
        QCOMPARE(dialog->windowModality(), Qt::WindowModal);
        dialog->setDirectory(m_folder.path());
        dialog->selectFile(m_folder.filePath(name));
        QMetaObject::invokeMethod(dialog, "accept");
        if (!ended)
            dialog->reject();
        QVERIFY(ended);
        QCOMPARE(url.has_value(), accepted);
        QTRY_VERIFY(!window.findChild<QFileDialog *>());
    }
};

QTEST_MAIN(ReadingTest)
#include "reading_test.moc"
