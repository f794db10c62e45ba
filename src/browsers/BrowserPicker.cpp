#include "browsers/BrowserPicker.h"

#include "browsers/BrowserChoice.h"
#include "browsers/IconFiles.h"
#include "view/Controls.h"
#include "view/Modifiers.h"
#include "view/Stacks.h"

#include <QCoreApplication>
#include <QDir>
#include <QIcon>

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(BrowserPicker)
};
} // namespace

QWidget *BrowserPicker(const State<QStringList> &browsers, State<QString> &selectedBrowser,
                       BrowserChoice &choice)
{
    const auto icon = [&choice, files = std::make_shared<IconFiles>()](const QString &browser) {
        const QString name = choice.icon(browser);
        if (QDir::isAbsolutePath(name))
            return files->icon(name);
        return name.contains(u'/') ? QIcon() : QIcon::fromTheme(name);
    };
    QWidget *picker = Picker(
        Titles::tr("ブラウザを選択"), selectedBrowser, [&browsers] { return browsers.value(); }, icon);
    QWidget *group = VStack({picker}, {.spacing = 20, .padded = true});
    const auto refill = [&choice] { choice.refill(); };
    return onAppear([refill, group] { afterFirstPaint(refill, group); }, group);
}
