#include "play/JourneyBoard.h"

#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Journey;

namespace {

struct Titles {
    Q_DECLARE_TR_FUNCTIONS(JourneyBoard)
};

QString title(Destination destination)
{
    switch (destination) {
    case Destination::BuyFood:
        return Titles::tr("食品購入");
    case Destination::BuyClothes:
        return Titles::tr("衣類購入");
    case Destination::Shop:
        return Titles::tr("お店");
    case Destination::OwnPlace:
        return Titles::tr("居場所");
    case Destination::Disembark:
        return Titles::tr("下船");
    case Destination::FujiPark:
        return Titles::tr("冨士山公園");
    case Destination::Station:
        return Titles::tr("駅");
    }
    return {};
}

// Where the boat is and what it does there, for those who don't see it.
QString situation(double offset, bool movingRight, const QString &movingStr)
{
    if (isAnchored(movingStr))
        return movingStr == anchoredRight ? Titles::tr("右岸に停泊中") : Titles::tr("左岸に停泊中");
    if (offset <= leftLimit)
        return Titles::tr("左岸");
    const QString place = Titles::tr("左岸から %1").arg(qint64(offset));
    return place + (movingRight ? Titles::tr("、右へ航行中") : Titles::tr("、左へ航行中"));
}

// As wide as the title needs. The least width that a style gives its buttons would make those that are
// displaced towards each other overlap.
QSize compactSize(const QPushButton &button)
{
    constexpr int padding = 18;
    return {button.fontMetrics().horizontalAdvance(button.text()) + padding, button.sizeHint().height()};
}

// Larger than other buttons', so that the boat can be made out, but the longest label has room.
QFont boatFont(QFont font)
{
    constexpr double padding = 16;
    const double longest = QFontMetricsF(font).horizontalAdvance(anchoredRight.toString());
    font.setPointSizeF(font.pointSizeF() * std::min(1.5, (boatWidth - padding) / longest));
    return font;
}

} // namespace

JourneyBoard::~JourneyBoard()
{
    QAccessible::removeActivationObserver(this);
}

JourneyBoard::JourneyBoard(const Fields &fields)
    : m_fields(fields)
    , m_boat(new QPushButton(this))
{
    setAccessibleName(Titles::tr("旅"));
    m_boat->resize(int(boatWidth), int(boatHeight));
    m_boat->setFont(boatFont(QApplication::font(m_boat)));
    connect(m_boat, &QPushButton::clicked, this, &JourneyBoard::press);
    for (const Destination destination : destinations) {
        auto *button = new QPushButton(title(destination), this);
        connect(button, &QPushButton::clicked, this, [this, destination] { travel(destination); });
        m_stops.push_back({destination, button, {}, {}});
    }
    follow(
        this, [this] { return m_fields.movingStr.value(); },
        [this](const QString &label) { m_boat->setText(label); });
    m_isReadOut = QAccessible::isActive();
    QAccessible::installActivationObserver(this);
    follow(
        this,
        [this] {
            return m_isReadOut ? situation(m_fields.offset, m_fields.movingRight, m_fields.movingStr)
                               : QString();
        },
        [this](const QString &now) { m_boat->setAccessibleDescription(now); });
    const auto whatMatters = [this] {
        return std::pair(m_fields.btnStatus.value(), isAnchored(m_fields.movingStr.value()));
    };
    follow(this, whatMatters, [this](const auto &) { showWhatIsThere(); });
    follow(
        this, [this] { return m_fields.offset.value(); }, [this](double) { displace(); });
}

QSize JourneyBoard::sizeHint() const
{
    return {int(boatWidth), int(boatHeight) + rowHeight() + 3 * spacing()};
}

void JourneyBoard::press()
{
    setBoard(boatPressed(board(), width()));
}

void JourneyBoard::travel(Destination destination)
{
    setBoard(arrived(destination, board()));
}

Board JourneyBoard::board() const
{
    return {.offset = m_fields.offset,
            .movingRight = m_fields.movingRight,
            .movingStr = m_fields.movingStr,
            .btnStatus = m_fields.btnStatus};
}

// The views follow once, when all four are set.
void JourneyBoard::setBoard(const Board &board)
{
    Qt::beginPropertyUpdateGroup();
    m_fields.offset = board.offset;
    m_fields.movingRight = board.movingRight;
    m_fields.movingStr = board.movingStr;
    m_fields.btnStatus = board.btnStatus;
    Qt::endPropertyUpdateGroup();
}

bool JourneyBoard::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
        joinWindow();
        break;
    case QEvent::Hide:
        showWhatIsThere();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
        // The buttons hear of it at their own time, as they stand in the window.
        QMetaObject::invokeMethod(this, &JourneyBoard::adoptFont, Qt::QueuedConnection);
        break;
    case QEvent::Resize:
    case QEvent::Move:
        layOut();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void JourneyBoard::adoptFont()
{
    m_boat->setFont(boatFont(QApplication::font(m_boat)));
    for (Stop &stop : m_stops)
        stop.size = {};
    layOut();
}

// The board's place in the window changes with every widget that it stands in.
bool JourneyBoard::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        layOut();
    return false;
}

void JourneyBoard::joinWindow()
{
    if (m_boat->parentWidget() != window()) {
        m_boat->setParent(window());
        // Later ones lie above: what stays in its place above what is displaced onto it.
        for (const bool displaced : {true, false}) {
            for (const Stop &stop : m_stops) {
                if (isDisplaced(stop.destination) == displaced)
                    stop.button->setParent(window());
            }
        }
        for (QWidget *holder = parentWidget(); holder && holder != window();
             holder = holder->parentWidget())
            holder->installEventFilter(this);
    }
    showWhatIsThere();
}

void JourneyBoard::showWhatIsThere()
{
    const bool onScreen = isVisible();
    std::vector<QPushButton *> leaving;
    QPushButton *first = nullptr;
    const auto show = [&](QPushButton *button, bool isThere) {
        if (!isThere || !onScreen)
            leaving.push_back(button);
        else {
            button->show();
            first = first ? first : button;
        }
    };
    for (const Stop &stop : m_stops)
        show(stop.button, isShown(stop.destination, m_fields.btnStatus, m_fields.movingStr.value()));
    show(m_boat, isBoatShown(m_fields.btnStatus));

    // The keyboard stays on the board: its focus goes over before the button that has it goes.
    for (QPushButton *button : leaving) {
        if (first && button->hasFocus())
            first->setFocus();
        button->hide();
    }
    layOut();
}

// Where the buttons belong, before any displacement.
void JourneyBoard::layOut()
{
    if (!isVisible())
        return;
    const double free = height() - boatHeight - rowHeight() - 3 * spacing();
    const double boatTop = std::max(0.0, free / 2) + spacing();
    m_boatPlace = mapTo(window(), QPointF((width() - boatWidth) / 2, boatTop));

    double room = -spacing();
    for (Stop &stop : m_stops) {
        if (stop.button->isHidden())
            continue;
        if (!stop.size.isValid())
            stop.size = compactSize(*stop.button);
        room += stop.size.width() + spacing();
    }
    double left = (width() - room) / 2;
    for (Stop &stop : m_stops) {
        if (stop.button->isHidden())
            continue;
        stop.button->resize(stop.size);
        stop.place = mapTo(window(), QPointF(left, height() - (rowHeight() + stop.size.height()) / 2.0));
        left += stop.size.width() + spacing();
    }
    displace();
}

void JourneyBoard::displace()
{
    const double offset = m_fields.offset;
    m_boat->move((m_boatPlace + QPointF(offset, 0)).toPoint());
    for (const Stop &stop : m_stops) {
        if (!stop.button->isHidden())
            stop.button->move((stop.place + QPointF(displacement(stop.destination, offset), 0)).toPoint());
    }
}

int JourneyBoard::rowHeight() const
{
    return m_stops.front().button->sizeHint().height();
}

int JourneyBoard::spacing() const
{
    return style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing);
}
