#include "Testing.h"
#include "document/ReadingText.h"
#include "platform/Background.h"
#include "platform/OpenPanel.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/UserDefaults.h"
#include "reading/OpeningMessage.h"
#include "reading/TextLoading.h"
#include "reading/TextPane.h"

#include <QFileDialog>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

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

    static void finishReading()
    {
        QTRY_VERIFY(Workers::waiting().isIdle());
        QCoreApplication::processEvents();
    }

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
        const State<double> size{14};
        TextPane pane(m_text, size);
        m_text.setValue(u"一\r\n二"_s);
        QTest::keyClick(&pane, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&pane, u"abc"_s);
        QCOMPARE(m_text.value(), u"一\n二abc"_s);
        pane.undo();
        QCOMPARE(m_text.value(), u"一\n二"_s);
    }

    void onlyPlainTextIsPasted()
    {
        ReadingText text;
        const State<double> size{14};
        Pane pane(text, size);
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
        QSignalSpy loaded(&m_loading, &TextLoading::loaded);
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!window.findChild<QFileDialog *>());
    }
};

QTEST_MAIN(ReadingTest)
#include "reading_test.moc"
