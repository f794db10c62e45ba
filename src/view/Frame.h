#pragma once

#include <QWidget>

struct FrameBounds {
    QSize minimum;
    QSize ideal;
    QSize maximum;
};

/// Holds one content and gives it all its room, but never less than the minimum nor more than the
/// maximum; in a frame that is forced larger the content stays centred.
class Frame : public QWidget {
    Q_OBJECT

public:
    Frame(QWidget *content, const FrameBounds &bounds);

    const FrameBounds &bounds() const { return m_bounds; }
    QSize sizeHint() const override { return m_bounds.ideal; }
    QSize minimumSizeHint() const override { return m_bounds.minimum; }

protected:
    void resizeEvent(QResizeEvent *) override;

private:
    QWidget *m_content;
    FrameBounds m_bounds;
};
