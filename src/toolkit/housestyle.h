/// The toolkit's own drawing, calmed: flat buttons, frames and title bars, lines in the colours of the
/// palette.
#pragma once

#include <QProxyStyle>

class QStyleOptionSlider;
class QStyleOptionTitleBar;

class HouseStyle : public QProxyStyle
{
    Q_OBJECT

public:
    HouseStyle();

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;

private:
    void drawScrollBar(const QStyleOptionSlider& bar, QPainter* painter, const QWidget* widget) const;
    void drawTitleBar(const QStyleOptionTitleBar& bar, QPainter* painter, const QWidget* widget) const;
    void drawTitleButton(SubControl button, const QStyleOptionTitleBar& bar, QPainter* painter,
                         const QWidget* widget) const;
};
