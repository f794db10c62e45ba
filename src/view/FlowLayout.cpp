#include "view/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <numeric>

namespace {

int lineHeight(const std::vector<QLayoutItem *> &line)
{
    return std::accumulate(line.begin(), line.end(), 0, [](int height, QLayoutItem *item) {
        return std::max(height, item->sizeHint().height());
    });
}

bool canGrow(const QLayoutItem *item)
{
    return item->expandingDirections().testFlag(Qt::Horizontal);
}

// What can grow needs only its least width to stay on a line.
int neededWidth(const QLayoutItem *item)
{
    return canGrow(item) ? item->minimumSize().width() : item->sizeHint().width();
}

} // namespace

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.emplace_back(item);
}

int FlowLayout::count() const
{
    return int(m_items.size());
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[size_t(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem *item = m_items[size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const
{
    const auto rows = lines(width - margins().width());
    int height = spacing() * std::max(0, int(rows.size()) - 1);
    for (const Line &line : rows)
        height += lineHeight(line);
    return height + margins().height();
}

QSize FlowLayout::sizeHint() const
{
    QSize size;
    int visible = 0;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        ++visible;
        const QSize hint = item->sizeHint();
        size = {size.width() + hint.width(), std::max(size.height(), hint.height())};
    }
    return size + QSize(spacing() * std::max(0, visible - 1), 0) + margins();
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size + margins();
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    const QRect inner = rect.marginsRemoved(contentsMargins());
    int top = inner.top();
    for (const Line &line : lines(inner.width())) {
        const int height = lineHeight(line);
        placeLine(line, {inner.left(), top, inner.width(), height});
        top += height + spacing();
    }
}

std::vector<FlowLayout::Line> FlowLayout::lines(int width) const
{
    std::vector<Line> rows;
    int used = 0;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const int wanted = neededWidth(item.get());
        if (rows.empty() || used + spacing() + wanted > width) {
            rows.emplace_back();
            used = wanted;
        } else {
            used += spacing() + wanted;
        }
        rows.back().push_back(item.get());
    }
    return rows;
}

void FlowLayout::placeLine(const Line &line, const QRect &place) const
{
    int used = spacing() * (int(line.size()) - 1);
    for (const QLayoutItem *item : line)
        used += neededWidth(item);
    int spare = std::max(0, place.width() - used);
    auto growing = int(std::count_if(line.begin(), line.end(), canGrow));

    int x = place.left();
    for (QLayoutItem *item : line) {
        QSize size(neededWidth(item), item->sizeHint().height());
        if (canGrow(item) && growing > 0) {
            const int share = spare / growing--;
            spare -= share;
            size.rwidth() += share;
        }
        size.setWidth(std::min(size.width(), place.width()));
        const QRect logical(QPoint(x, place.top() + (place.height() - size.height()) / 2), size);
        item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), place, logical));
        x += size.width() + spacing();
    }
}

QSize FlowLayout::margins() const
{
    const QMargins edges = contentsMargins();
    return {edges.left() + edges.right(), edges.top() + edges.bottom()};
}
