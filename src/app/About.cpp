#include "app/About.h"

#include "view/Notice.h"

#include <QApplication>
#include <QCoreApplication>

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(About)
};
} // namespace

void showAbout(QWidget *window)
{
    const QString name = QStringLiteral("Tarumine ") + QCoreApplication::applicationVersion();
    const QString about =
        Titles::tr("文章を読む欄と、ちいさな道具と、船がひとつ。\n\n"
                   "ライセンス: MIT\n\n"
                   "使っているライブラリ: Qt %1、ICU、HarfBuzz、FreeType、Fontconfig、libdeflate、libpng、"
                   "uchardet、CUPS、GLib、XCB")
            .arg(QLatin1String(qVersion()));
    QMessageBox *box = showNotice(QMessageBox::NoIcon, name, about, window);
    box->setWindowTitle(Titles::tr("Tarumine について"));
    box->setIconPixmap(QApplication::windowIcon().pixmap(64));
}
