#include "main_window/SelectionPane.h"

#include "view/Controls.h"
#include "view/Modifiers.h"
#include "view/Stacks.h"

#include <QCoreApplication>

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(SelectionPane)
};
} // namespace

QWidget *SelectionPane(const State<std::optional<QUuid>> &selection, const State<QString> &hostName,
                       const State<QString> &userName)
{
    const auto selected = [&selection] { return selection.value().has_value(); };
    const auto nothing = [&selection] { return !selection.value().has_value(); };
    QWidget *texts = VStack({
        visibleWhen(nothing, wrapped(Text(Titles::tr("何も選択されていません")))),
        visibleWhen(selected, wrapped(Text([&hostName] { return hostName.value(); }))),
        visibleWhen(selected, wrapped(Text([&userName] { return userName.value(); }))),
        visibleWhen(selected,
                    wrapped(Text(Titles::tr(
                        "乗船切符のようなものが必要。コンピュータ名とユーザー名をご確認ください。")))),
    });
    return Scrollable(VStack({texts}, {.padded = true, .alignment = Qt::AlignVCenter}));
}
