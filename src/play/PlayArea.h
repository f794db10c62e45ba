#pragma once

#include <QWidget>

/// The region below the text pane.
class PlayArea : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    QSize sizeHint() const override { return {100, 80}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
};
