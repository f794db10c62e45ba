#include "Testing.h"
#include "app/Japanese.h"
#include "app/MainWindow.h"
#include "app/SettingsWindow.h"
#include "app/TarumineApp.h"
#include "reading/TextPane.h"
#include "view/ClearStyle.h"
#include "view/Frame.h"
#include "view/TypedOpenPanel.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

class AppTest : public QObject {
    Q_OBJECT

    static QAction *item(const QMainWindow &window, const QString &menu, const QString &title)
    {
        return titled(title, titled(menu, window.menuBar()->actions())->menu()->actions());
    }

    static SettingsWindow *settingsWindow()
    {
        SettingsWindow *found = nullptr;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *window = qobject_cast<SettingsWindow *>(widget))
                found = found ? nullptr : window; // there is only ever one
        }
        return found;
    }

private slots:
    // Programs that are started from here are as Japanese as the desktop.
    void theEnvironmentIsLeftAsItWas()
    {
        const QByteArray own = qgetenv("LC_ALL");
        for (const QByteArray &before : {QByteArray(), QByteArray("C.UTF-8")}) {
            before.isNull() ? qunsetenv("LC_ALL") : qputenv("LC_ALL", before);
            adoptJapaneseLocale();
            installJapaneseTexts();
            QCOMPARE(qgetenv("LC_ALL"), before);
            QCOMPARE(qEnvironmentVariableIsSet("LC_ALL"), !before.isNull());
            QVERIFY(!qEnvironmentVariableIsSet("FC_LANG"));
        }
        qputenv("LC_ALL", own);
    }

    void theContentKeepsItsBounds()
    {
        TarumineApp app;
        app.newWindow();
        MainWindow &window = *app.windows().front();
        auto *content = window.findChild<Frame *>();
        QCOMPARE(content->size(), QSize(999, 350));
        window.resize(3000, 3000);
        QCOMPARE(content->size(), QSize(1199, 650));
        window.resize(1, 1);
        QCOMPARE(content->size(), QSize(100, 100));
        window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); // forced larger, as a tiling desktop does
        window.setGeometry(0, 0, 1800, 1000);
        QVERIFY(content->findChild<QWidget *>()->width() <= 1199);
    }

    void everythingFollowsAFontThatComesLate()
    {
        TarumineApp app;
        app.newWindow();
        const MainWindow &window = *app.windows().front();
        const auto *pane = window.findChild<TextPane *>();
        const auto *boat = titled(u"船"_s, window.findChildren<QPushButton *>());
        const auto *heading = titled(u"ブラウザを選択"_s, window.findChildren<QLabel *>());
        const int boats = boat->fontInfo().pixelSize();
        const QFont before = QApplication::font();
        const auto change = [&] {
            QApplication::setFont(
                QFont(u"DejaVu Serif"_s, 15)); // as a desktop does whose settings were changed
            QCOMPARE(QApplication::font().families(),
                     QStringList({u"DejaVu Serif"_s, u"Noto Color Emoji"_s}));
            for (const QWidget *shown : QList<const QWidget *>{pane, boat, heading})
                QTRY_COMPARE(shown->font().families(), QApplication::font().families());
            QCOMPARE(pane->font().pointSizeF(), 14);
            QCOMPARE(qRound(heading->font().pointSizeF()), qRound(15 * 17 / 13.0));
            QTRY_VERIFY(boat->fontInfo().pixelSize() != boats);
            QApplication::setFont(before);
            QTRY_COMPARE(boat->fontInfo().pixelSize(), boats);
        };
        QTimer::singleShot(0, qApp, [&] {
            change();
            QCoreApplication::exit();
        });
        QCoreApplication::exec(); // without which Qt tells no widget
    }

    void whatMustBeToldApartStandsOut()
    {
        const auto luminance = [](const QColor &c) {
            const auto linear = [](double v) { return std::pow(v, 2.2); };
            return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF())
                + 0.05;
        };
        const auto contrast = [&](const QColor &a, const QColor &b) {
            return std::max(luminance(a), luminance(b)) / std::min(luminance(a), luminance(b));
        };
        const QPalette before = QApplication::palette();
        for (QPalette theme : {QPalette(QColor(0xef, 0xef, 0xef)), QPalette(QColor(0x2a, 0x2e, 0x32))}) {
            theme.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6)); // as white on it is hard to read
            theme.setColor(QPalette::HighlightedText, Qt::white);
            QApplication::style()->polish(theme);
            QApplication::setPalette(theme);
            const QPalette shown = QApplication::palette();
            QVERIFY(contrast(shown.color(QPalette::Highlight), shown.color(QPalette::HighlightedText))
                    > 4.4);
            QVERIFY(contrast(shown.color(QPalette::PlaceholderText), shown.color(QPalette::Base)) > 4.4);
            QCheckBox box;
            QSlider slider(Qt::Horizontal);
            for (QWidget *control : {static_cast<QWidget *>(&box), static_cast<QWidget *>(&slider)}) {
                control->resize(60, 24);
                const QImage picture = control->grab().toImage();
                double most = 0;
                for (int x = 0; x < 20; ++x)
                    most = std::max(most,
                                    contrast(picture.pixelColor(x, picture.height() / 2),
                                             shown.color(QPalette::Window)));
                QVERIFY2(most > 2.9, QByteArray::number(most));
            }
        }
        QApplication::setPalette(before);
    }

    void thereIsOneSettingsWindow()
    {
        TarumineApp app;
        app.newWindow();
        QAction *settings = item(*app.windows().front(), u"編集"_s, u"設定"_s);
        QCOMPARE(settings->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
        settings->trigger();
        QVERIFY(settingsWindow());
        QCOMPARE(settingsWindow()->size(), QSize(200, 500));
        settingsWindow()->resize(900, 900);
        QCOMPARE(settingsWindow()->size(), QSize(200, 500));
        settingsWindow()->resize(1, 1);
        QCOMPARE(settingsWindow()->size(), QSize(100, 100));
        settingsWindow()->close();
        settings->trigger();
        QVERIFY(settingsWindow() && settingsWindow()->isVisible());
        QVERIFY(QTest::qWaitForWindowActive(settingsWindow()));
        QTest::keyClick(settingsWindow(), Qt::Key_Escape);
        QVERIFY(!settingsWindow()->isVisible());
        settings->trigger();
        QTimer::singleShot(0, qApp, [&app] { app.windows().front()->close(); });
        QTimer::singleShot(10'000, qApp, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0); // which the last window ends, whatever the settings do
    }

    void theFilesPlaceIsTypedWhereAFolderDoesNotAnswer_data()
    {
        const QString home = QDir::homePath();
        cases<QString, QString>({
            {"a path", u"/mnt/a.txt"_s, u"/mnt/a.txt"_s},
            {"in the home folder", u"~/b/../a.TXT"_s, home + u"/a.TXT"_s},
            {"as seen from there", u"a.txt"_s, home + u"/a.txt"_s},
            {"another type", u"/mnt/a.rtf"_s, {}},
            {"nothing", {}, {}},
        });
    }
    void theFilesPlaceIsTypedWhereAFolderDoesNotAnswer()
    {
        const auto [typed, path] = values<QString, QString>();
        QWidget window;
        TypedOpenPanel panel({u"/mnt/<b>"_s}, &window);
        panel.setAllowedFileTypes({u"txt"_s});
        std::optional<QUrl> url;
        panel.runModal([&](ModalResponse) { url = panel.url(); });
        auto *dialog = window.findChild<QInputDialog *>();
        QCOMPARE(dialog->findChild<QLabel *>()->textFormat(), Qt::PlainText);
        dialog->setTextValue(typed);
        dialog->accept();
        QCOMPARE(url.value_or(QUrl()).toLocalFile(), path);
    }

    void aWindowCanBeClosedUnderAnOpenDialog()
    {
        const std::vector<std::function<void(MainWindow &)>> ways{
            [](MainWindow &window) { titled(u"読込"_s, window.findChildren<QPushButton *>())->click(); },
            [](MainWindow &window) { item(window, u"ヘルプ"_s, u"添付マニュアル"_s)->trigger(); },
        };
        for (const auto &openDialog : ways) {
            TarumineApp app;
            app.newWindow();
            app.newWindow();
            MainWindow &window = *app.windows().front();
            openDialog(window);
            QTRY_COMPARE(window.findChildren<QDialog *>().size(), 1);
            const auto dialogs = window.findChildren<QDialog *>();
            QCOMPARE(dialogs.first()->windowModality(), Qt::WindowModal);
            const QPointer<QDialog> dialog = dialogs.first();
            window.close();
            QTRY_COMPARE(app.windows().size(), size_t(1));
            QTRY_VERIFY(!dialog);
            QCoreApplication::processEvents();
        }
    }
};

int main(int argc, char *argv[])
{
    QApplication::setStyle(new ClearStyle(u"fusion"_s));
    JapaneseApplication application(argc, argv);
    installJapaneseTexts();
    AppTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "app_test.moc"
