#pragma once

#include <QHash>
#include <QPalette>
#include <QProxyStyle>

/// The desktop's style; where that is Qt's own Fusion, what must be told apart stands out: outlines and the
/// focus 3 : 1 from what is beside them, text 4.5 : 1 from its ground. Other styles, and palettes that are
/// made for contrast, stay as they are.
class ClearStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;
    void polish(QPalette &palette) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;

private:
    bool isOurs(const QPalette &palette) const;
    void drawFocus(const QStyleOption &option, QPainter &painter) const;
    QPalette outlined(const QPalette &palette) const;

    mutable QHash<qint64, QPalette> m_outlined; // by what they were made of
};
