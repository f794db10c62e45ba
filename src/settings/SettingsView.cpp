#include "settings/SettingsView.h"

#include "preferences/PreferenceKeys.h"
#include "view/Controls.h"
#include "view/Frame.h"
#include "view/Stacks.h"

#include <QCoreApplication>

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(SettingsView)
};

constexpr FrameBounds bounds{.minimum = {100, 100}, .ideal = {200, 500}, .maximum = {200, 500}};

QWidget *Term(const QString &label, AppStorage<qint64> &field)
{
    return Toggle(label,
                  {[&field] { return field.value() == 1; }, [&field](bool on) { field = on ? 1 : 0; }});
}

} // namespace

SettingsView::SettingsView(UserDefaults &store)
    : intToggle1(Key::IntKeyToggle1, store)
    , intToggle2(Key::IntKeyToggle2, store)
    , intToggle3(Key::IntKeyToggle3, store)
    , intToggle4(Key::IntKeyToggle4, store)
    , intToggle5(Key::IntKeyToggle5, store)
    , intToggle6(Key::IntKeyToggle6, store)
    , intToggle7(Key::IntKeyToggle7, store)
    , intToggle8(Key::IntKeyToggle8, store)
    , intToggle9(Key::IntKeyToggle9, store)
{
    store.watch();
}

Frame *SettingsView::body()
{
    QWidget *terms = VStack(
        {
            Text(Titles::tr("気になる用語(順不同)")),
            Term(Titles::tr("アニメ"), intToggle1),
            Term(Titles::tr("映画"), intToggle2),
            Term(Titles::tr("エージェント"), intToggle3),
            Term(Titles::tr("チャット型"), intToggle4),
            Term(Titles::tr("自律型"), intToggle5),
            Term(Titles::tr("座席"), intToggle6),
            Term(Titles::tr("磁気"), intToggle7),
            Term(Titles::tr("ブランド"), intToggle8),
            Term(Titles::tr("アクセス権"), intToggle9),
        },
        {.spacing = 12, .alignment = Qt::AlignLeading});
    return new Frame(Scrollable(VStack({terms}, {.alignment = Qt::AlignCenter})), bounds);
}
