#include "main_window/ContentView.h"
#include "reading/OpeningMessage.h"
#include "reading/TextPane.h"
#include "view/Frame.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

class ScriptedHost : public Host {
public:
    QString name() const override { return m_name; }
    QString userName() const override { return u"<b>taro</b>"_s; }
    QString m_name = u"機械&1"_s;
};

// Notes what it was asked to print.
struct Printed {
    PrintedText text;
    PrintInfo info;
    bool panel = false;
    bool progress = false;
};

class ScriptedPrintOperation : public PrintOperation {
public:
    ScriptedPrintOperation(PrintedText text, PrintInfo info, QWidget *window, QList<Printed> &all)
        : PrintOperation(std::move(text), std::move(info), window)
        , m_all(all)
    {
    }
    void runOperation(std::function<void(bool)> ended) override
    {
        m_all += {m_text, m_info, m_showsPrintPanel, m_showsProgressPanel};
        ended(false);
    }

private:
    QList<Printed> &m_all;
};

} // namespace

class ContentViewTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.filePath(u"Tarumine.conf"_s)};
    ScriptedHost m_host;
    Workspace m_workspace;
    QList<Printed> m_printed;
    Surroundings m_surroundings{m_store,
                                m_host,
                                m_workspace,
                                newOpenPanel,
                                [this](PrintedText text, PrintInfo info, QWidget *window) {
                                    return new ScriptedPrintOperation(std::move(text), std::move(info),
                                                                      window, m_printed);
                                },
                                m_folder.path()};

    static QStringList visibleTexts(const QWidget &view)
    {
        QStringList texts;
        for (const QLabel *label : view.findChildren<QLabel *>()) {
            if (label->isVisible() && label->wordWrap())
                texts += label->text();
        }
        return texts;
    }

    // The scrollable pane that does, or doesn't, hold the text.
    static QScrollArea *pane(const QWidget &view, bool holdsText)
    {
        const auto *text = view.findChild<TextPane *>();
        for (QScrollArea *area : view.findChildren<QScrollArea *>()) {
            if (area->isAncestorOf(text) == holdsText)
                return area;
        }
        return nullptr;
    }

    static QRect placeIn(const QWidget &view, const QWidget &widget)
    {
        return {widget.mapTo(&view, QPoint()), widget.size()};
    }

private slots:
    void aNewWindowStartsAsDocumented()
    {
        ContentView content(m_surroundings);
        QCOMPARE(content.uString.value(), QString());
        QCOMPARE(content.sp1.value(), 0);
        QCOMPARE(content.sp2.value(), 0);
        const std::unique_ptr<Frame> view(content.body());
        QCOMPARE(view->findChild<TextPane *>()->toPlainText(), QString());
        QCOMPARE(view->findChild<QSlider *>()->value(), 14);
        QCOMPARE(view->findChild<QComboBox *>()->count(), 0);
        view->show();
        QCOMPARE(view->findChild<TextPane *>()->toPlainText(), openingMessage());
        QCOMPARE(visibleTexts(*view), QStringList{u"何も選択されていません"_s});
    }

    void aNewWindowStartsFromTheStoreAndWhatItIsGiven()
    {
        UserDefaults store(m_folder.filePath(u"another.conf"_s));
        store.setInteger(6, Key::IntKeyToggle2);
        Surroundings surroundings{store, m_host, m_workspace, newOpenPanel, newPrintOperation, {}};
        ContentView given({.uString = u"代わり"_s, .sp1 = 4}, surroundings);
        QCOMPARE(given.uString.value(), u"代わり"_s);
        QCOMPARE(store.string(Key::StringKeyPX5), std::nullopt);
        QCOMPARE(given.sp1.value(), 4);
        QCOMPARE(given.sp2.value(), 6);
        QCOMPARE(ContentView({.sp2 = 9}, surroundings).sp2.value(), 9);
        given.uString = u"書いた"_s;
        QCOMPARE(store.string(Key::StringKeyPX5), u"書いた"_s);
        QCOMPARE(ContentView(surroundings).uString.value(), u"書いた"_s);
        store.setInteger(0, Key::IntKeyToggle2);
        QCOMPARE(given.sp2.value(), 6); // an open window keeps what it was seeded with
    }

    void selectingARowShowsWhoAndWhere()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        auto *tree = view->findChild<QTreeView *>();
        const QStringList expected{
            u"機械&1"_s, u"<b>taro</b>"_s,
            u"乗船切符のようなものが必要。コンピュータ名とユーザー名をご確認ください。"_s};
        tree->setCurrentIndex(tree->model()->index(0, 0));
        QCOMPARE(visibleTexts(*view), expected);
        tree->setCurrentIndex(tree->model()->index(1, 0));
        QCOMPARE(visibleTexts(*view), expected);
        tree->clearSelection();
        QCOMPARE(visibleTexts(*view), QStringList{u"何も選択されていません"_s});

        m_host.m_name.clear();
        view->hide();
        view->show(); // the names are read anew
        tree->setCurrentIndex(tree->model()->index(0, 0));
        QCOMPARE(visibleTexts(*view).value(0), u"Unknown"_s);
    }

    void atNoSizeDoesAnythingOverlap()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        for (int width = 100; width <= 1199; width += 41) {
            for (const int height : {100, 200, 350, 650}) {
                view->resize(width, height);
                QCoreApplication::processEvents();
                QCOMPARE(view->size(), QSize(width, height));
                const QByteArray where = QByteArray::number(width) + " x " + QByteArray::number(height);
                const auto *column = pane(*view, true)->widget();
                QRegion taken;
                for (const QWidget *control : column->findChildren<QWidget *>()) {
                    const bool stands = qobject_cast<const QPushButton *>(control)
                        || qobject_cast<const QComboBox *>(control)
                        || qobject_cast<const QSlider *>(control) || qobject_cast<const QLabel *>(control)
                        || qobject_cast<const TextPane *>(control);
                    if (!stands || !control->isVisible()
                        || qobject_cast<const QComboBox *>(control->parent()))
                        continue;
                    const QRect place = placeIn(*column, *control);
                    QVERIFY2(column->rect().contains(place), where);
                    QVERIFY2(!taken.intersects(place), where);
                    QVERIFY2(control->height() >= control->minimumSizeHint().height(), where);
                    taken += place;
                }
            }
        }
    }

    void thePdfIsAimedAtTheDownloads()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        view->findChild<TextPane *>()->insertPlainText(u"打ったばかり。"_s);
        for (QPushButton *button : view->findChildren<QPushButton *>()) {
            if (button->text() == u"簡易PDF"_s)
                button->click();
        }
        QCOMPARE(m_printed.size(), 1);
        const Printed &printed = m_printed.first();
        QCOMPARE(printed.text.string, u"打ったばかり。"_s + openingMessage());
        QCOMPARE(printed.text.width, 550);
        QCOMPARE(printed.info.jobSavingPath, m_folder.path() + u"/名称未設定.pdf"_s);
        QVERIFY(printed.info.jobDisposition == PrintInfo::JobDisposition::Save);
        QCOMPARE(printed.info.paperSize, QSizeF(595, 842));
        for (const double margin : {printed.info.topMargin, printed.info.bottomMargin,
                                    printed.info.leftMargin, printed.info.rightMargin})
            QCOMPARE(margin, 20);
        QVERIFY(!printed.info.horizontallyCentered && !printed.info.verticallyCentered);
        QVERIFY(printed.panel && printed.progress);

        const PrintInfo &shared = PrintInfo::sharedPrintInfo(); // is as it was
        QVERIFY(shared.topMargin != 20 && shared.jobDisposition == PrintInfo::JobDisposition::Spool);

        m_surroundings.downloads = m_folder.filePath(u"gone"_s);
        content.savePDF(u"a"_s);
        QCOMPARE(m_printed.size(), 1);
    }

    void theEditMenuActsOnTheText()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        auto *pane = view->findChild<TextPane *>();
        QMenu menu;
        content.fillEditMenu(menu);
        const auto item = [&](const QString &title) {
            for (QAction *action : menu.actions()) {
                if (action->text().startsWith(title))
                    return action;
            }
            return static_cast<QAction *>(nullptr);
        };
        QVERIFY(!item(u"元に戻す"_s)->isEnabled());
        QVERIFY(!item(u"コピー"_s)->isEnabled());
        view->findChild<QPushButton *>()->setFocus();
        item(u"すべてを選択"_s)->trigger();
        QCOMPARE(pane->textCursor().selectedText(), openingMessage());
        item(u"切り取り"_s)->trigger();
        QCOMPARE(pane->toPlainText(), QString());
        item(u"元に戻す"_s)->trigger();
        QCOMPARE(pane->toPlainText(), openingMessage());
        item(u"やり直す"_s)->trigger();
        item(u"貼り付け"_s)->trigger();
        QCOMPARE(pane->toPlainText(), openingMessage());
    }
};

QTEST_MAIN(ContentViewTest)
#include "content_view_test.moc"
