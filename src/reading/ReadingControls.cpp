#include "reading/ReadingControls.h"

#include "reading/FontSize.h"
#include "view/Controls.h"
#include "view/FlowLayout.h"

#include <QCoreApplication>
#include <QWidget>

#include <initializer_list>

namespace {
struct Titles {
    Q_DECLARE_TR_FUNCTIONS(ReadingControls)
};

// One row where there is room for it, and as many as it takes where there is none.
QWidget *wrappingRow(std::initializer_list<QWidget *> children)
{
    auto *row = new QWidget;
    auto *layout = new FlowLayout(row);
    layout->setContentsMargins({});
    for (QWidget *child : children)
        layout->addWidget(child);
    return row;
}

} // namespace

QWidget *ReadingControls(State<double> &fontSize, const ReadingActions &act, QWidget *picker)
{
    using namespace FontSize;
    const Binding<double> size([&fontSize] { return fontSize.value(); },
                               [&fontSize](double points) { fontSize = allowed(points); });
    return wrappingRow({
        Slider(Titles::tr("Font Size"), size,
               {.from = smallest, .to = largest, .step = step, .unit = Titles::tr("ポイント")}),
        Text([&fontSize] { return Titles::tr("%1 pt").arg(qint64(fontSize.value())); }),
        Button(Titles::tr("別スレッド"), act.startSimulation),
        Button(Titles::tr("読込"), act.openText),
        Button(Titles::tr("簡易PDF"), act.savePdf),
        Button(Titles::tr("起動"), act.launch),
        picker,
    });
}
