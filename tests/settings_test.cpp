#include "Testing.h"
#include "preferences/PreferenceKeys.h"
#include "settings/SettingsView.h"
#include "view/Frame.h"

#include <QCheckBox>
#include <QLabel>

class SettingsTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    UserDefaults m_store{m_folder.filePath(u"Tarumine.conf"_s)};

    static QList<QCheckBox *> boxes(const Frame &view) { return view.findChildren<QCheckBox *>(); }

private slots:
    void theTermsStandInTheirOrder()
    {
        SettingsView settings(m_store);
        const std::unique_ptr<Frame> view(settings.body());
        QCOMPARE(view->findChild<QLabel *>()->text(), u"気になる用語(順不同)"_s);
        QStringList labels;
        for (const QCheckBox *box : boxes(*view)) {
            labels += box->text();
            QCOMPARE(box->accessibleName(), box->text());
            QVERIFY(!box->isChecked());
        }
        QCOMPARE(labels,
                 QStringList({u"アニメ"_s, u"映画"_s, u"エージェント"_s, u"チャット型"_s, u"自律型"_s,
                              u"座席"_s, u"磁気"_s, u"ブランド"_s, u"アクセス権"_s}));
        QVERIFY(!QFile::exists(m_store.fileName()));
    }

    void eachTermHasItsOwnKey()
    {
        const QList<QLatin1StringView> keys{Key::IntKeyToggle1, Key::IntKeyToggle2, Key::IntKeyToggle3,
                                            Key::IntKeyToggle4, Key::IntKeyToggle5, Key::IntKeyToggle6,
                                            Key::IntKeyToggle7, Key::IntKeyToggle8, Key::IntKeyToggle9};
        SettingsView settings(m_store);
        const std::unique_ptr<Frame> view(settings.body());
        for (int on = 0; on < keys.size(); ++on) {
            boxes(*view)[on]->click();
            for (int key = 0; key < keys.size(); ++key)
                QCOMPARE(m_store.integer(keys[key]), key == on ? 1 : 0);
            boxes(*view)[on]->click();
            QCOMPARE(m_store.string(keys[on]), u"0"_s);
        }
    }

    void onlyOneIsOn()
    {
        for (const qint64 stored : {1, 0, 2, -1}) {
            m_store.setInteger(stored, Key::IntKeyToggle4);
            SettingsView settings(m_store);
            const std::unique_ptr<Frame> view(settings.body());
            QCheckBox *box = boxes(*view)[3];
            const bool on = stored == 1;
            QCOMPARE(box->isChecked(), on);
            QCOMPARE(m_store.integer(Key::IntKeyToggle4), stored); // showing it changes nothing
            box->click();
            QCOMPARE(m_store.integer(Key::IntKeyToggle4), on ? 0 : 1);
            box->click();
            QCOMPARE(m_store.integer(Key::IntKeyToggle4), on ? 1 : 0);
        }
    }

    void openViewsFollowEachOther()
    {
        SettingsView one(m_store), other(m_store);
        const std::unique_ptr<Frame> here(one.body()), there(other.body());
        m_store.setInteger(0, Key::IntKeyToggle9);
        boxes(*here)[8]->toggle(); // as a screen reader does, without a click
        QCOMPARE(m_store.integer(Key::IntKeyToggle9), 1);
        QVERIFY(boxes(*there)[8]->isChecked());
        boxes(*there)[8]->click();
        QVERIFY(!boxes(*here)[8]->isChecked());
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
