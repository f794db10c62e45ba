#include "browsers/BrowserPicker.h"

#include "view/Controls.h"
#include "view/Stacks.h"

#include <QCoreApplication>

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(BrowserPicker)
};
} // namespace

QWidget *BrowserPicker(const State<QStringList> &browsers, State<QString> &selectedBrowser)
{
    return VStack(
        {Picker(Titles::tr("ブラウザを選択"), selectedBrowser, [&browsers] { return browsers.value(); })},
        {.spacing = 20, .padded = true});
}
