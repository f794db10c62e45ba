#include "Testing.h"
#include "reading/FontSize.h"
#include "reading/TextPane.h"
#include "reading/WordBoundaries.h"
#include "reading/WordStep.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextLayout>

namespace {

class Pane : public TextPane {
public:
    using TextPane::createMimeDataFromSelection;
    using TextPane::insertFromMimeData;
    using TextPane::TextPane;

    // How many characters of the text stand before the caret.
    qsizetype caret(const PiecedDocument &document) const
    {
        return document.text(0, textCursor().position()).size();
    }
};

QString longLine(int length)
{
    QString line;
    while (line.size() < length)
        line += u"今日は🐈の記録を%1回読む👨‍👩‍👧。"_s.arg(line.size());
    return line;
}

} // namespace

class LargeTextTest : public QObject {
    Q_OBJECT

    ReadingText m_text;
    State<double> m_size{FontSize::initial};

private slots:
    void itIsTheTextFromTheFirstMomentOn_data()
    {
        cases<QString>({
            {"many lines", u"一行の文\n\n"_s.repeated(300'000)},
            {"many lines without one at the end", u"1\n2\n3"_s.repeated(60'000)},
            {"every kind of line end",
             u"a\r\nb\rc\nd\u0085e\u2028f\u2029g\vh\fi\u2028\n\u2028"_s.repeated(60'000)},
            {"one very long line", u"QUJDREVG+/=0"_s.repeated(300'000)},
            {"long lines with characters of several units",
             (longLine(60'000) + u"\n短い\n\n"_s).repeated(9) + longLine(2000)},
        });
    }
    void itIsTheTextFromTheFirstMomentOn()
    {
        const auto [text] = values<QString>();
        QString lines = text; // as they are once somebody has edited them
        lines.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(QChar::ParagraphSeparator, u'\n');

        m_text.setValue(text);
        QCOMPARE(m_text.value(), text);
        QTextCursor(&m_text.document()).insertText(u"x"_s);
        QVERIFY(m_text.value().startsWith(u'x'));
        enter(m_text, text);
        QCOMPARE(m_text.value(), text);
        QTextCursor(&m_text.document()).insertText(u"x"_s);
        QVERIFY(m_text.value() == u'x' + lines);
        m_text.undo();
        QVERIFY(m_text.value() == lines && !m_text.document().isUndoAvailable());
        for (QTextBlock block = m_text.document().begin(); block.isValid(); block = block.next())
            QVERIFY(block.length() < 1500);
    }

    void itIsTheTextWhileItIsBeingDecoded()
    {
        const auto open = [this](const QString &text) {
            const QByteArray utf8 = text.toUtf8();
            IncomingText incoming;
            incoming.utf8 = FileContent(utf8);
            incoming.shape = TextPieces::shapeOfUtf8(utf8);
            m_text.assign(incoming);
        };
        QSignalSpy complete(&m_text, &ReadingText::complete);
        for (const QString &text : {longLine(700'000), u"一行の文\r\n\n"_s.repeated(300'000)}) {
            complete.clear();
            open(text);
            QVERIFY(complete.isEmpty()); // so this is before it has been decoded
            QVERIFY(m_text.document().characterCount() > 1);
            QCOMPARE(m_text.value(), text);
            QVERIFY(complete.wait(20'000));
            QCOMPARE(m_text.value(), text);

            open(text);
            QTextCursor(&m_text.document()).insertText(u"x"_s);
            QString edited = u'x' + text;
            edited.replace(u"\r\n"_s, u"\n"_s);
            QVERIFY(m_text.value().replace(u"\r\n"_s, u"\n"_s) == edited);
            QVERIFY(complete.wait(20'000));
            QVERIFY(m_text.value() == edited);
            open(text);
            m_text.setValue(u"動作中"_s);
            hearFrom(Workers::computing());
            QCOMPARE(m_text.value(), u"動作中"_s);
            complete.clear();
            m_text.undo();
            QVERIFY(complete.wait(20'000));
            QCOMPARE(m_text.value(), text);
        }
    }

    void aSeamIsNoPlaceOfItsOwn()
    {
        const QString line = longLine(3000);
        Pane pane(m_text, m_size);
        enter(m_text, line);
        PiecedDocument &document = m_text.document();
        const int seam = document.begin().next().position();
        QVERIFY(document.isSeamBefore(document.findBlock(seam)));

        QTextCursor at(&document);
        const auto put = [&](int position) {
            at.setPosition(position);
            pane.setTextCursor(at);
        };
        for (const int side : {seam - 1, seam}) {
            put(side);
            QTest::keyClick(&pane, Qt::Key_Left);
            QVERIFY(pane.caret(document) < seam - 1);
            QTest::keyClick(&pane, Qt::Key_Right);
            QCOMPARE(pane.caret(document), seam - 1);
            QTest::keyClick(&pane, Qt::Key_Right);
            QVERIFY(pane.caret(document) > seam - 1);

            for (const auto &[key, changed] : {
                     std::pair(Qt::Key_Backspace, line.left(seam - 2) + line.mid(seam - 1)),
                     std::pair(Qt::Key_Delete, line.left(seam - 1) + line.mid(seam)),
                     std::pair(Qt::Key_Return, line.left(seam - 1) + u'\n' + line.mid(seam - 1)),
                 }) {
                put(side);
                QTest::keyClick(&pane, key);
                QCOMPARE(m_text.value(), changed);
                for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
                    QVERIFY(block.length() > 1); // no empty line is seen that isn't in the text
                pane.undo();
                QCOMPARE(m_text.value(), line);
            }
        }
        const auto word = WordBoundaries::around(line, seam - 1);
        QCOMPARE(wordAround(document, seam).selectionStart(),
                 document.positionOf(int(word.start)) + (word.start == seam - 1 ? 1 : 0));
        QAccessibleTextInterface *heard = QAccessible::queryAccessibleInterface(&pane)->textInterface();
        QCOMPARE(heard->text(0, heard->characterCount()), line);
        heard->setCursorPosition(2000);
        QCOMPARE(heard->cursorPosition(), 2000);
        heard->setSelection(0, 1990, 2000); // forwards
        QCOMPARE(heard->cursorPosition(), 2000);
        heard->setCursorPosition(2000);
        heard->scrollToSubstring(0, 1); // which is no move of the caret
        QTest::keyClick(&pane, Qt::Key_X);
        QCOMPARE(m_text.value(), line.left(2000) + u'x' + line.mid(2000));
        pane.undo();
        QCOMPARE(document.lineAround(seam + 9).selectionEnd(), document.characterCount() - 1);
        pane.selectAll();
        const std::unique_ptr<QMimeData> copied(pane.createMimeDataFromSelection());
        QCOMPARE(copied->text(), line);
        m_text.setValue(u"前後"_s);
        QTest::keyClick(&pane, Qt::Key_Right);
        pane.insertFromMimeData(copied.get());
        QCOMPARE(m_text.value(), u"前"_s + line + u"後"_s);
        QVERIFY(document.blockCount() > 4);
        pane.undo();
        QCOMPARE(m_text.value(), u"前後"_s);
    }

    // The lines that are seen break where those of an edit break that knows of no pieces.
    void noLineEndsEarlyOnTheScreen()
    {
        const QString text = longLine(9000) + u"\r\n次の行"_s;
        Pane pane(m_text, m_size);
        QPlainTextEdit whole(text.left(2500));
        const auto lines = [](const QTextDocument &document) {
            QStringList all;
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                document.documentLayout()->blockBoundingRect(block);
                for (int i = 0; i < block.layout()->lineCount(); ++i) {
                    const QTextLine line = block.layout()->lineAt(i);
                    all << block.text().mid(line.textStart(), line.textLength());
                }
            }
            return all;
        };
        enter(m_text, text);
        for (const int width : {600, 330, 900}) {
            for (QPlainTextEdit *edit : {static_cast<QPlainTextEdit *>(&pane), &whole}) {
                edit->setFont(pane.font());
                edit->resize(width, 600);
                edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
                edit->show();
            }
            QTRY_COMPARE(lines(m_text.document()).first(16), lines(*whole.document()).first(16));
            const auto seen = pane.cursorForPosition({5, 590}).blockNumber();
            QVERIFY(seen >= 1 && m_text.document().isSeamBefore(m_text.document().findBlockByNumber(1)));
        }
        QCOMPARE(m_text.value(), text);
        QVERIFY(!m_text.document().isUndoAvailable());
        QTest::keyClick(&pane, Qt::Key_X);
        pane.resize(500, 300);
        QCoreApplication::processEvents();
        QVERIFY(m_text.document().isUndoAvailable());
        pane.undo();
        QCOMPARE(m_text.value(), longLine(9000) + u"\n次の行"_s);
    }

    // Whatever is edited wherever, and taken back.
    void offsetsCountCharactersAndNoSeams()
    {
        enter(m_text, (longLine(5000) + u"\n短い行\n"_s).repeated(14));
        PiecedDocument &document = m_text.document();
        QVERIFY(document.blockCount() > 300);
        QRandomGenerator random(7);
        QTextCursor cursor(&document);
        for (int round = 0; round < 100; ++round) {
            const int position = random.bounded(document.characterCount());
            const auto before = document.text(0, position).size();
            QCOMPARE(document.offsetOf(position), before);
            const int back = document.positionOf(int(before));
            QCOMPARE(back, document.acrossSeamBackward(position));
            const int start = random.bounded(document.characterCount());
            const int length = round % 3 == 0 ? random.bounded(3000) : 1;
            cursor.setPosition(start);
            cursor.setPosition(std::min(start + length, document.characterCount() - 1),
                               QTextCursor::KeepAnchor);
            if (round % 7 == 0)
                document.undo();
            else if (round % 5 == 0)
                document.insert(cursor, longLine(2500));
            else
                document.insertLineEnd(cursor);
        }
    }

    void noSeamIsInsideACharacter()
    {
        const QString family = u"👨‍👩‍👧‍👦"_s;
        enter(m_text, family.repeated(1000));
        const PiecedDocument &document = m_text.document();
        QVERIFY(document.blockCount() > 1);
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            QCOMPARE(block.text().size() % family.size(), 0);
    }

    void aThirdClickSelectsALine()
    {
        Pane pane(m_text, m_size);
        pane.resize(600, 300);
        pane.show();
        enter(m_text, u"一行の文\n"_s.repeated(60'000));
        const QPoint second = pane.cursorRect().center() + QPoint(8, pane.cursorRect().height());
        QTest::mouseDClick(pane.viewport(), Qt::LeftButton, {}, second);
        QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(pane.textCursor().selectionStart(), 5);
        QCOMPARE(pane.textCursor().selectionEnd(), 10);
    }

    void anotherTextStopsTheOneThatIsEntering()
    {
        m_text.setValue(u"あ\n"_s.repeated(2'000'000));
        const PiecedDocument &stopped = m_text.document();
        const int entered = stopped.characterCount();
        QVERIFY(entered < 1'000'000);
        const QString another = u"い\n"_s.repeated(200'000);
        enter(m_text, another); // in slices, between which there would have been time for the first one
        QCOMPARE(stopped.characterCount(), entered);
        QCOMPARE(m_text.document().text(), another);
    }
};

QTEST_MAIN(LargeTextTest)
#include "large_text_test.moc"
