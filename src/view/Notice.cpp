#include "view/Notice.h"

#include "view/Modifiers.h"

#include <QCoreApplication>
#include <QLabel>

QMessageBox *showNotice(QMessageBox::Icon kind, const QString &what, const QString &why, QWidget *window)
{
    auto *notice = new QMessageBox(kind, QStringLiteral("Tarumine"), what, QMessageBox::Ok, window);
    notice->setTextFormat(Qt::PlainText);
    notice->setInformativeText(why);
    // The format that is set doesn't reach the label of the reason.
    for (QLabel *label : notice->findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    notice->setAttribute(Qt::WA_DeleteOnClose);
    notice->setWindowModality(Qt::WindowModal);
    onKeys({quitKey()}, &QCoreApplication::quit, notice);
    notice->open();
    return notice;
}
