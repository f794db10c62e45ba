#pragma once

#include "play/Journey.h"
#include "view/State.h"

#include <QAccessible>
#include <QWidget>

#include <vector>

class QPushButton;

/// The region below the text pane, in which the boat crosses from left to right and back and buttons
/// lead from place to place.
///
/// Its layout is a stack: a spacer, the boat, a spacer, and the row of destinations at the bottom; the
/// row's height is always kept, so that the boat stays at its height. A displaced button may leave the
/// region, so the buttons belong to the window: nothing else clips them, and they lie above the panes.
class JourneyBoard : public QWidget, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    struct Fields {
        State<double> &offset;
        State<bool> &movingRight;
        State<QString> &movingStr;
        State<qint64> &btnStatus;
    };
    explicit JourneyBoard(const Fields &fields);
    ~JourneyBoard() override;
    Q_DISABLE_COPY_MOVE(JourneyBoard)

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Stop {
        Journey::Destination destination;
        QPushButton *button;
        QPointF place; ///< its own, in the window
        QSize size;    ///< invalid until it is first there in the present font
    };

    void accessibilityActiveChanged(bool active) override { m_isReadOut = active; }

    void press();
    void travel(Journey::Destination destination);
    Journey::Board board() const;
    void setBoard(const Journey::Board &board);

    void joinWindow();
    void showWhatIsThere();
    void adoptFont();
    void layOut();
    void displace();
    int rowHeight() const;
    int spacing() const;

    Fields m_fields;
    State<bool> m_isReadOut; // only then does it say in words where the boat is
    QPushButton *m_boat;
    QPointF m_boatPlace; ///< its own, in the window
    std::vector<Stop> m_stops;
};
