#include "tree/NodeIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace {

// Draws on a square of 16 × 16 units, at whatever size and resolution is asked for.
class DrawnIcon : public QIconEngine {
public:
    using Drawing = void (*)(QPainter &);
    explicit DrawnIcon(Drawing drawing)
        : m_drawing(drawing)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.center() - QPointF(side - 1, side - 1) / 2);
        painter->scale(side / 16.0, side / 16.0);
        painter->setOpacity(mode == QIcon::Disabled ? 0.5 : 1);
        m_drawing(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine *clone() const override { return new DrawnIcon(m_drawing); }

private:
    Drawing m_drawing;
};

void drawFolder(QPainter &painter)
{
    painter.setPen(QPen(QColor(0xb0, 0x80, 0x28), 1));
    painter.setBrush(QColor(0xf2, 0xc4, 0x5c));
    painter.drawRoundedRect(QRectF(1.5, 2.5, 6, 5), 1, 1); // the tab
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 9), 1, 1);
}

void drawDocument(QPainter &painter)
{
    QPainterPath sheet; // with its upper right corner folded
    sheet.addPolygon(QPolygonF({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}));
    sheet.closeSubpath();
    painter.setPen(QPen(QColor(0x80, 0x88, 0x90), 1));
    painter.setBrush(Qt::white);
    painter.drawPath(sheet);
    painter.drawLines(QList<QLineF>{{9.5, 1.5, 9.5, 4.5}, {9.5, 4.5, 12.5, 4.5}});
    painter.drawLines(QList<QLineF>{{5.5, 7, 10.5, 7}, {5.5, 9.5, 10.5, 9.5}, {5.5, 12, 8.5, 12}});
}

QIcon themed(const QString &name, DrawnIcon::Drawing drawing)
{
    const QIcon drawn(new DrawnIcon(drawing));
    // Without a desktop there is only the base theme, which has no such icons but takes long to read.
    return QIcon::themeName() == QStringLiteral("hicolor") ? drawn : QIcon::fromTheme(name, drawn);
}

} // namespace

// Looked up at the first use and shared by all windows.
QIcon folderIcon()
{
    static const QIcon icon = themed(QStringLiteral("folder"), drawFolder);
    return icon;
}

QIcon documentIcon()
{
    static const QIcon icon = themed(QStringLiteral("text-x-generic"), drawDocument);
    return icon;
}
