#include "Testing.h"
#include "main_window/ContentView.h"
#include "reading/OpeningMessage.h"
#include "reading/TextPane.h"
#include "view/Frame.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QSlider>
#include <QTreeView>

namespace {

class ScriptedHost : public Host {
public:
    QString name() const override { return m_name; }
    QString userName() const override
    {
        const QSemaphoreReleaser answer(m_mayAnswer);
        m_mayAnswer.acquire();
        return u"<b>taro</b>"_s;
    }
    mutable QSemaphore m_mayAnswer{1};
    QString m_name = u"機械&1"_s;
};

// Shows what it was asked to print.
class ScriptedPrintOperation : public PrintOperation {
public:
    using PrintOperation::m_info, PrintOperation::m_text;
    using PrintOperation::m_showsPrintPanel, PrintOperation::m_showsProgressPanel;
    using PrintOperation::PrintOperation;

    void runOperation(std::function<void(bool)> ended) override { ended(false), ++m_runs; }

    int m_runs = 0;
};

} // namespace

class ContentViewTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.filePath(u"Tarumine.conf"_s)};
    ScriptedHost m_host;
    Workspace m_workspace;
    QList<ScriptedPrintOperation *> m_printed;
    Surroundings m_surroundings{m_store,
                                m_host,
                                m_workspace,
                                newOpenPanel,
                                [this](const PrintedText &text, const PrintInfo &info, QWidget *window) {
                                    m_printed += new ScriptedPrintOperation(text, info, window);
                                    return m_printed.last();
                                },
                                m_folder.path()};

    // The content of a window and what shows it, which goes first.
    static std::pair<std::unique_ptr<ContentView>, std::unique_ptr<Frame>> shown(Surroundings &surroundings)
    {
        auto content = std::make_unique<ContentView>(surroundings);
        auto view = std::unique_ptr<Frame>(content->body());
        view->show();
        return {std::move(content), std::move(view)};
    }

    static QStringList visibleTexts(const QWidget &view)
    {
        QStringList texts;
        for (const QLabel *label : view.findChildren<QLabel *>()) {
            if (label->isVisible() && label->wordWrap())
                texts += label->text();
        }
        return texts;
    }

private slots:
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
        const auto [content, view] = shown(m_surroundings);
        auto *tree = view->findChild<QTreeView *>();
        const QStringList expected{
            u"機械&1"_s, u"<b>taro</b>"_s,
            u"乗船切符のようなものが必要。コンピュータ名とユーザー名をご確認ください。"_s};
        tree->setCurrentIndex(tree->model()->index(0, 0));
        QTRY_COMPARE(visibleTexts(*view), expected);

        // A directory service that doesn't answer keeps no window waiting.
        m_host.m_mayAnswer.acquire();
        {
            const auto [another, itsView] = shown(m_surroundings);
            auto *itsTree = itsView->findChild<QTreeView *>();
            itsTree->setCurrentIndex(itsTree->model()->index(0, 0));
            QCOMPARE(visibleTexts(*itsView), QStringList({expected[0], {}, expected[2]}));
            m_host.m_mayAnswer.release();
            QTRY_COMPARE(visibleTexts(*itsView), expected);
        }

        m_host.m_name.clear();
        view->hide();
        view->show(); // the names are read anew
        tree->setCurrentIndex(tree->model()->index(0, 0));
        QCOMPARE(visibleTexts(*view).value(0), u"Unknown"_s);
    }

    void atNoSizeDoesAnythingOverlap()
    {
        const auto [content, view] = shown(m_surroundings);
        for (int width = 100; width <= 1199; width += 41) {
            for (const int height : {100, 200, 350, 650}) {
                view->resize(width, height);
                QCoreApplication::processEvents();
                QCOMPARE(view->size(), QSize(width, height));
                const QByteArray where = QByteArray::number(width) + " x " + QByteArray::number(height);
                const QWidget *column = view->findChild<TextPane *>()->parentWidget();
                QRegion taken;
                for (const QWidget *control : column->findChildren<QWidget *>()) {
                    const bool stands = qobject_cast<const QPushButton *>(control)
                        || qobject_cast<const QComboBox *>(control)
                        || qobject_cast<const QSlider *>(control) || qobject_cast<const QLabel *>(control)
                        || qobject_cast<const TextPane *>(control);
                    if (!stands || !control->isVisible()
                        || qobject_cast<const QComboBox *>(control->parent()))
                        continue;
                    const QRect place(control->mapTo(column, QPoint()), control->size());
                    QVERIFY2(column->rect().contains(place), where);
                    QVERIFY2(!taken.intersects(place), where);
                    QVERIFY2(control->height() >= control->minimumSizeHint().height(), where);
                    taken += place;
                }
            }
        }
    }

    void thereIsRoomForReading()
    {
        const QFont usual = QApplication::font();
        for (const double points : {9.0, 10.0, 11.0, 12.0}) {
            QFont font(u"Noto Sans CJK JP"_s);
            font.setPointSizeF(points);
            QApplication::setFont(font);
            const auto [content, view] = shown(m_surroundings);
            view->resize(999, 350);
            QCoreApplication::processEvents();
            const auto *pane = view->findChild<TextPane *>();
            const QWidget *column = pane->parentWidget();
            const auto middle = [column](const QWidget *control) {
                return control->mapTo(column, control->rect().center()).y();
            };
            const auto buttons = column->findChildren<QPushButton *>();
            for (int i = 1; i < 4; ++i)
                QCOMPARE(middle(buttons[i]), middle(buttons[0]));
            QVERIFY(std::abs(middle(column->findChild<QSlider *>()) - middle(buttons[0])) < 3);
            const auto *list = column->findChild<QComboBox *>(); // its title stands above it
            QVERIFY2(std::abs(middle(list->parentWidget()) - middle(buttons[0])) < 3,
                     QByteArray::number(points));
            QVERIFY2(pane->height() >= 150, QByteArray::number(pane->height()));
            auto *tree = view->findChild<QTreeView *>();
            tree->expandAll();
            const QModelIndex deepest = tree->indexBelow(tree->indexBelow(tree->model()->index(1, 0)));
            QVERIFY(tree->visualRect(deepest).width() >= tree->sizeHintForIndex(deepest).width());
        }
        QApplication::setFont(usual);
    }

    void thePdfIsAimedAtTheDownloads()
    {
        const auto [content, view] = shown(m_surroundings);
        view->findChild<TextPane *>()->insertPlainText(u"打ったばかり。"_s);
        auto *button = titled(u"簡易PDF"_s, view->findChildren<QPushButton *>());
        button->click();
        button->click();                        // before there is a dialog
        view->findChild<TextPane *>()->clear(); // too late to count
        QTRY_COMPARE(m_printed.size(), 1);
        const ScriptedPrintOperation &printed = *m_printed.first();
        QCOMPARE(printed.m_runs, 1);
        QCOMPARE(printed.m_text.string, u"打ったばかり。"_s + openingMessage());
        QCOMPARE(printed.m_text.width, 550);
        const PrintInfo &info = printed.m_info;
        QCOMPARE(info.jobSavingPath, m_folder.path() + u"/名称未設定.pdf"_s);
        QVERIFY(info.jobDisposition == PrintInfo::JobDisposition::Save);
        QCOMPARE(info.paperSize, QSizeF(595, 842));
        for (const double margin : {info.topMargin, info.bottomMargin, info.leftMargin, info.rightMargin})
            QCOMPARE(margin, 20);
        QVERIFY(!info.horizontallyCentered && !info.verticallyCentered);
        QVERIFY(printed.m_showsPrintPanel && printed.m_showsProgressPanel);

        const PrintInfo &shared = PrintInfo::sharedPrintInfo(); // is as it was
        QVERIFY(shared.topMargin != 20 && shared.jobDisposition == PrintInfo::JobDisposition::Spool);

        button->click(); // while the dialog is there
        hearFrom(Workers::waiting());
        QCOMPARE(m_printed.size(), 1);
        delete m_printed.takeFirst();
        button->click();
        QTRY_COMPARE(m_printed.size(), 1);
    }
};

QTEST_MAIN(ContentViewTest)
#include "content_view_test.moc"
