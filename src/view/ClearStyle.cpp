#include "view/ClearStyle.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

namespace {

constexpr double outlineContrast = 3.8; // Fusion draws some a little lighter
constexpr double focusContrast = 3.3;
constexpr double textContrast = 4.5;
constexpr double madeForContrast = 20;

// As the Web Content Accessibility Guidelines measure them.
double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [less, more] = std::minmax({luminance(a), luminance(b)}); // by value
    return (more + 0.05) / (less + 0.05);
}

QColor mixed(const QColor &from, const QColor &to, double share)
{
    const auto mix = [share](double a, double b) { return float(a + (b - a) * share); };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()));
}

// As little of the way to another colour as makes it stand out from all of the grounds.
QColor standingOut(const QColor &color, const QColor &towards, double least,
                   std::initializer_list<QColor> grounds)
{
    constexpr int steps = 50;
    for (int step = 0; step < steps; ++step) {
        const QColor tried = mixed(color, towards, double(step) / steps);
        if (std::all_of(grounds.begin(), grounds.end(),
                        [&](const QColor &ground) { return contrast(tried, ground) >= least; }))
            return tried;
    }
    return towards;
}

bool hasOutline(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton
        || element == QStyle::PE_Frame || element == QStyle::PE_FrameLineEdit
        || element == QStyle::PE_PanelLineEdit || element == QStyle::PE_PanelButtonCommand;
}

} // namespace

bool ClearStyle::isOurs(const QPalette &palette) const
{
    return baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0
        && contrast(palette.color(QPalette::Window), palette.color(QPalette::WindowText)) < madeForContrast;
}

void ClearStyle::polish(QPalette &palette)
{
    QProxyStyle::polish(palette);
    if (!isOurs(palette))
        return;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        const QColor away = luminance(text) > 0.5 ? Qt::black : Qt::white;
        const QColor ground = palette.color(group, QPalette::Highlight);
        palette.setColor(group, QPalette::Highlight, standingOut(ground, away, textContrast, {text}));
        const QColor base = palette.color(group, QPalette::Base);
        palette.setColor(group, QPalette::PlaceholderText,
                         standingOut(mixed(base, palette.color(group, QPalette::Text), 0.5),
                                     palette.color(group, QPalette::Text), textContrast, {base}));
    }
}

// Fusion outlines in a darker shade of the window, and what has the focus in one of the highlight: they are
// made of the colours that they are to become.
QPalette ClearStyle::outlined(const QPalette &palette) const
{
    constexpr qsizetype most = 64;
    const auto known = m_outlined.constFind(palette.cacheKey());
    if (known != m_outlined.constEnd())
        return *known;
    const QColor window = palette.color(QPalette::Window), text = palette.color(QPalette::WindowText);
    const std::initializer_list<QColor> grounds{window, palette.color(QPalette::Base)};
    const QColor outline = standingOut(window, text, outlineContrast, grounds);
    const QColor focus =
        standingOut(palette.color(QPalette::Highlight).darker(125), text, focusContrast, grounds);
    QPalette changed = palette;
    changed.setColor(QPalette::Window, outline.lighter(140));
    changed.setColor(QPalette::Highlight, focus.lighter(125));
    if (m_outlined.size() >= most)
        m_outlined.clear();
    return *m_outlined.insert(palette.cacheKey(), changed);
}

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    if (element == PE_FrameFocusRect && isOurs(option->palette))
        return drawFocus(*option, *painter);
    if (!hasOutline(element) || !isOurs(option->palette))
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    // The kinds of option differ in what follows the palette, so it is the palette of this one that
    // changes.
    auto *changing = const_cast<QStyleOption *>(option);
    const QPalette before = option->palette;
    changing->palette = outlined(before);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    changing->palette = before;
}

// Fusion's is a tint of the ground.
void ClearStyle::drawFocus(const QStyleOption &option, QPainter &painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(outlined(option.palette).color(QPalette::Highlight).darker(125));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

void ClearStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                    QPainter *painter, const QWidget *widget) const
{
    if ((control != CC_Slider && control != CC_ComboBox) || !isOurs(option->palette))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    auto *changing = const_cast<QStyleOptionComplex *>(option);
    const QPalette before = option->palette;
    changing->palette = outlined(before);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    changing->palette = before;
}
