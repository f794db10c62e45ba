#include "reading/EncodingMenu.h"

#include "reading/TextLoading.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(EncodingMenu)
};

struct Choice {
    QString title;
    QByteArray encoding; // as decodedText calls it
};

std::vector<std::vector<Choice>> choices()
{
    return {
        {{Titles::tr("自動(&A)"), {}}},
        {{Titles::tr("UTF-8"), "UTF-8"},
         {Titles::tr("日本語（シフト JIS）"), "windows-31j"},
         {Titles::tr("日本語（EUC-JP）"), "EUC-JP"},
         {Titles::tr("日本語（JIS, ISO-2022-JP）"), "ISO-2022-JP-1"},
         {Titles::tr("UTF-16（リトルエンディアン）"), "UTF-16LE"},
         {Titles::tr("UTF-16（ビッグエンディアン）"), "UTF-16BE"},
         {Titles::tr("UTF-32（リトルエンディアン）"), "UTF-32LE"},
         {Titles::tr("UTF-32（ビッグエンディアン）"), "UTF-32BE"}},
        {{Titles::tr("中国語（簡体字, GB18030）"), "GB18030"},
         {Titles::tr("中国語（繁体字, Big5）"), "Big5"},
         {Titles::tr("韓国語（UHC）"), "windows-949"}},
        {{Titles::tr("西ヨーロッパ（Windows-1252）"), "windows-1252"},
         {Titles::tr("西ヨーロッパ（ISO-8859-15）"), "ISO-8859-15"},
         {Titles::tr("中央ヨーロッパ（Windows-1250）"), "windows-1250"},
         {Titles::tr("中央ヨーロッパ（ISO-8859-2）"), "ISO-8859-2"},
         {Titles::tr("バルト（Windows-1257）"), "windows-1257"},
         {Titles::tr("キリル（Windows-1251）"), "windows-1251"},
         {Titles::tr("キリル（ISO-8859-5）"), "ISO-8859-5"},
         {Titles::tr("キリル（DOS 866）"), "IBM866"},
         {Titles::tr("ロシア語（KOI8-R）"), "KOI8-R"},
         {Titles::tr("ウクライナ語（KOI8-U）"), "KOI8-U"},
         {Titles::tr("ギリシャ語（Windows-1253）"), "windows-1253"},
         {Titles::tr("ギリシャ語（ISO-8859-7）"), "ISO-8859-7"},
         {Titles::tr("トルコ語（Windows-1254）"), "windows-1254"},
         {Titles::tr("ヘブライ語（Windows-1255）"), "windows-1255"},
         {Titles::tr("アラビア語（Windows-1256）"), "windows-1256"}},
    };
}

void addChoices(QMenu &menu, TextLoading &loading)
{
    auto *group = new QActionGroup(&menu);
    for (const auto &section : choices()) {
        menu.addSeparator();
        for (const auto &[title, encoding] : section) {
            QAction *item = menu.addAction(title);
            item->setCheckable(true);
            item->setData(encoding);
            group->addAction(item);
            QObject::connect(item, &QAction::triggered, &loading,
                             [&loading, name = encoding] { loading.readAgain(name); });
        }
    }
}

} // namespace

// Made, and brought up to date, when somebody looks.
void fillEncodingMenu(QMenu &menu, TextLoading &loading)
{
    QObject::connect(&menu, &QMenu::aboutToShow, &loading, [&menu, &loading] {
        if (menu.isEmpty())
            addChoices(menu, loading);
        for (QAction *item : menu.actions()) {
            item->setEnabled(loading.hasFile());
            item->setChecked(loading.hasFile() && item->data().toByteArray() == loading.encoding());
        }
    });
}
