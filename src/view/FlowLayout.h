#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// Lines of widgets: a new line begins where the next widget would no longer fit. In each line the
/// widgets are centred vertically, and those that can grow share the width that is left.
class FlowLayout : public QLayout {
public:
    using QLayout::QLayout;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }

private:
    using Line = std::vector<QLayoutItem *>;
    std::vector<Line> lines(int width) const;
    void placeLine(const Line &line, const QRect &place) const;
    QSize margins() const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};
