#include "view/Frame.h"

#include <QStyle>

Frame::Frame(QWidget *content, const FrameBounds &bounds)
    : m_content(content)
    , m_bounds(bounds)
{
    setMinimumSize(bounds.minimum);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    content->setParent(this);
}

void Frame::resizeEvent(QResizeEvent *)
{
    const QSize room = size().expandedTo(m_bounds.minimum).boundedTo(m_bounds.maximum);
    m_content->setGeometry(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, room, rect()));
}
