#include "main_window/Columns.h"
#include "main_window/ContentView.h"
#include "reading/OpeningMessage.h"
#include "reading/TextPane.h"
#include "view/Frame.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
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

} // namespace

class ContentViewTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.filePath(u"Tarumine.conf"_s)};
    ScriptedHost m_host;
    Workspace m_workspace;
    Surroundings m_surroundings{m_store, m_host, m_workspace, newOpenPanel};

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
        QCOMPARE(view->findChild<QSlider *>()->value(), 4);
        QCOMPARE(view->findChild<QComboBox *>()->count(), 0);
        view->show();
        QCOMPARE(view->findChild<TextPane *>()->toPlainText(), openingMessage());
        QCOMPARE(visibleTexts(*view), QStringList{u"何も選択されていません"_s});
    }

    void aNewWindowStartsFromTheStore()
    {
        m_store.setInteger(1, Key::IntKeyToggle2);
        m_store.setString(u"保存"_s, Key::StringKeyPX5);
        const ContentView seeded(m_surroundings);
        QCOMPARE(seeded.sp2.value(), 1);
        QCOMPARE(seeded.uString.value(), u"保存"_s);
        m_store.setInteger(0, Key::IntKeyToggle2);
        QCOMPARE(seeded.sp2.value(), 1); // an open window keeps what it was seeded with
    }

    void givenValuesStandInForTheDefaults()
    {
        const QString stored = QTemporaryDir().path() + u"/none.conf"_s;
        UserDefaults empty(stored);
        empty.setInteger(6, Key::IntKeyToggle2);
        Surroundings surroundings{empty, m_host, m_workspace, newOpenPanel};
        ContentView given({.uString = u"代わり"_s, .sp1 = 4}, surroundings);
        QCOMPARE(given.uString.value(), u"代わり"_s);
        QCOMPARE(empty.string(Key::StringKeyPX5), std::nullopt);
        QCOMPARE(given.sp1.value(), 4);
        QCOMPARE(given.sp2.value(), 6);
        QCOMPARE(ContentView({.sp2 = 9}, surroundings).sp2.value(), 9);
        given.uString = u"書いた"_s;
        QCOMPARE(empty.string(Key::StringKeyPX5), u"書いた"_s);
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
    }

    void aNamelessComputerIsUnknown()
    {
        ScriptedHost nameless;
        nameless.m_name.clear();
        Surroundings surroundings{m_store, nameless, m_workspace, newOpenPanel};
        ContentView content(surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        auto *tree = view->findChild<QTreeView *>();
        tree->setCurrentIndex(tree->model()->index(0, 0));
        QCOMPARE(visibleTexts(*view).value(0), u"Unknown"_s);
    }

    void theTextAppearsAnewWithItsWindow()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        auto *pane = view->findChild<TextPane *>();
        QTest::keyClicks(pane, u"x"_s);
        QVERIFY(pane->toPlainText() != openingMessage());
        view->hide();
        view->show();
        QCOMPARE(pane->toPlainText(), openingMessage());
    }

    void theControlsStandInReadingOrder()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        QStringList names;
        const QWidget *start = view->findChild<QTreeView *>();
        for (QWidget *next = start->nextInFocusChain(); next != start; next = next->nextInFocusChain()) {
            if ((next->focusPolicy() & Qt::TabFocus) && !next->accessibleName().isEmpty())
                names += next->accessibleName();
        }
        QCOMPARE(names,
                 QStringList({u"Font Size"_s, u"別スレッド"_s, u"読込"_s, u"簡易PDF"_s, u"起動"_s,
                              u"ブラウザを選択"_s, u"テキスト"_s}));
        for (const QPushButton *button : view->findChildren<QPushButton *>())
            QVERIFY(button->isEnabled());
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

    void theColumnsStandInOrder_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("sideShown");
        QTest::addColumn<bool>("stacked");
        QTest::newRow("wide: side by side") << 999 << true << false;
        QTest::newRow("narrow: sidebar above selection") << 400 << true << true;
        QTest::newRow("very narrow: the detail column alone") << 200 << false << true;
    }
    void theColumnsStandInOrder()
    {
        QFETCH(int, width);
        QFETCH(bool, sideShown);
        QFETCH(bool, stacked);
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        view->resize(width, 350);
        const auto *tree = view->findChild<QTreeView *>();
        const auto *selection = pane(*view, false);
        const auto *detail = pane(*view, true);
        QCOMPARE(tree->isVisible(), sideShown);
        QCOMPARE(selection->isVisible(), sideShown);
        QVERIFY(detail->isVisible());
        if (!sideShown)
            return;
        const QRect a = placeIn(*view, *tree), b = placeIn(*view, *selection), c = placeIn(*view, *detail);
        QVERIFY(stacked ? a.bottom() < b.top() : a.right() < b.left());
        QVERIFY(b.right() < c.left());
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

    void theViewMenuStaysWithinTheSizes()
    {
        ContentView content(m_surroundings);
        const std::unique_ptr<Frame> view(content.body());
        view->show();
        QMenu menu;
        content.fillViewMenu(menu);
        const auto *slider = view->findChild<QSlider *>();
        QAction *larger = menu.actions().at(2), *smaller = menu.actions().at(3),
                *normal = menu.actions().at(4);
        for (int i = 0; i < 40; ++i)
            larger->trigger();
        QCOMPARE(slider->value(), slider->maximum());
        for (int i = 0; i < 40; ++i)
            smaller->trigger();
        QCOMPARE(slider->value(), 0);
        normal->trigger();
        QCOMPARE(slider->value(), 4);

        menu.actions().at(0)->trigger();
        QVERIFY(!view->findChild<QTreeView *>()->isVisible());
        menu.actions().at(0)->trigger();
        QVERIFY(view->findChild<QTreeView *>()->isVisible());
    }
};

QTEST_MAIN(ContentViewTest)
#include "content_view_test.moc"
