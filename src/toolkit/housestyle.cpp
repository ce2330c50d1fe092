#include "toolkit/housestyle.h"

#include "toolkit/theme.h"

#include <algorithm>
#include <QGroupBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleFactory>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace
{

constexpr qreal corner = 4; // pixels, radius

/// The colour of thin lines on windows; deep: nearer to the text's.
QColor lineColour(const QPalette& palette, bool deep = false)
{
    return between(palette.window().color(), palette.windowText().color(), deep ? 0.32 : 0.18);
}

void drawPlate(QPainter* painter, const QRect& place, const QColor& line, const QBrush& fill)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(fill);
    painter->drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    painter->restore();
}

void drawButton(QPainter* painter, const QStyleOption& option)
{
    const QPalette& palette = option.palette;
    const QColor accent = palette.highlight().color();
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    QColor fill = enabled ? palette.button().color() : palette.window().color();
    if (option.state & (QStyle::State_Sunken | QStyle::State_On)) {
        fill = between(fill, palette.buttonText().color(), 0.16);
    } else if (enabled && option.state.testFlag(QStyle::State_MouseOver)) {
        fill = between(fill, accent, 0.12);
    }
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool chosen = option.state.testFlag(QStyle::State_HasFocus) ||
                        (button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton));
    drawPlate(painter, option.rect, chosen && enabled ? accent : lineColour(palette, enabled), fill);
}

void drawIndicator(QPainter* painter, const QStyleOption& option, bool round)
{
    const QPalette& palette = option.palette;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool on = option.state.testFlag(QStyle::State_On);
    const QColor accent = enabled ? palette.highlight().color() : lineColour(palette, true);
    const bool touched = option.state & (QStyle::State_MouseOver | QStyle::State_HasFocus);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(on || (touched && enabled) ? accent : lineColour(palette, true));
    painter->setBrush(on ? accent : palette.base().color());
    const QRectF place = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal side = std::min(place.width(), place.height());
    const qreal radius = round ? side / 2 : 3;
    painter->drawRoundedRect(QRectF(place.topLeft(), QSizeF(side, side)), radius, radius);
    painter->translate(place.topLeft());
    if (on && round) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.highlightedText());
        painter->drawEllipse(QPointF(side, side) / 2, side / 5, side / 5);
    } else if (on) {
        painter->setPen(QPen(palette.highlightedText().color(), 1.6, Qt::SolidLine, Qt::RoundCap));
        painter->drawPolyline(QPolygonF{QPointF(side * 0.25, side * 0.52), QPointF(side * 0.43, side * 0.7),
                                        QPointF(side * 0.77, side * 0.3)});
    }
    painter->restore();
}

/// A frame begins below its title.
QRect frameBelowTitle(const QRect& whole, const QWidget* widget)
{
    constexpr int gap = 3;
    const auto* box = qobject_cast<const QGroupBox*>(widget);
    const bool titled = box != nullptr && !box->title().isEmpty();
    return titled ? whole.adjusted(0, box->fontMetrics().height() + gap, 0, 0) : whole;
}

/// The lines of a title button's sign, within a square of nine units.
QPainterPath titleSign(QStyle::SubControl button)
{
    QPainterPath path;
    switch (button) {
    case QStyle::SC_TitleBarCloseButton:
        path.moveTo(0, 0);
        path.lineTo(9, 9);
        path.moveTo(9, 0);
        path.lineTo(0, 9);
        break;
    case QStyle::SC_TitleBarMinButton:
        path.moveTo(0, 8);
        path.lineTo(9, 8);
        break;
    case QStyle::SC_TitleBarMaxButton:
        path.addRect(0, 0, 9, 9);
        break;
    default: // back to the normal size
        path.addRect(0, 3, 6, 6);
        path.moveTo(3, 3);
        path.lineTo(3, 0);
        path.lineTo(9, 0);
        path.lineTo(9, 6);
        path.lineTo(6, 6);
    }
    return path;
}

/// The buttons that a window's flags and state call for.
QList<QStyle::SubControl> titleButtons(const QStyleOptionTitleBar& bar)
{
    const bool minimized = (bar.titleBarState & Qt::WindowMinimized) != 0;
    const bool maximized = (bar.titleBarState & Qt::WindowMaximized) != 0;
    const bool canMinimize = bar.titleBarFlags.testFlag(Qt::WindowMinimizeButtonHint);
    const bool canMaximize = bar.titleBarFlags.testFlag(Qt::WindowMaximizeButtonHint);
    QList<QStyle::SubControl> buttons;
    if (canMinimize && !minimized) {
        buttons += QStyle::SC_TitleBarMinButton;
    }
    if (canMaximize && !maximized) {
        buttons += QStyle::SC_TitleBarMaxButton;
    }
    if ((canMinimize && minimized) || (canMaximize && maximized)) {
        buttons += QStyle::SC_TitleBarNormalButton;
    }
    if (bar.titleBarFlags.testFlag(Qt::WindowSystemMenuHint)) {
        buttons += QStyle::SC_TitleBarCloseButton;
    }
    return buttons;
}

bool isActive(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_Active);
}

} // namespace

HouseStyle::HouseStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
}

int HouseStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_DialogButtonBox_ButtonsHaveIcons: // the toolkit's own small pictures are of another hand
    case SH_ComboBox_Popup:                   // a menu measures each of its entries, be they thousands
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    switch (element) {
    case PE_FrameGroupBox:
        return drawPlate(painter, frameBelowTitle(option->rect, widget), lineColour(option->palette),
                         Qt::NoBrush);
    case PE_FrameLineEdit:
    case PE_Frame: {
        const bool focused = option->state.testFlag(State_HasFocus);
        painter->setPen(focused ? option->palette.highlight().color() : lineColour(option->palette, true));
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
    case PE_PanelItemViewItem:
        if (option->state.testFlag(State_Selected)) {
            return painter->fillRect(option->rect, option->palette.highlight());
        }
        break;
    case PE_IndicatorRadioButton:
        return drawIndicator(painter, *option, true);
    case PE_IndicatorCheckBox:
        return drawIndicator(painter, *option, false);
    case PE_PanelButtonCommand:
        return drawButton(painter, *option);
    case PE_FrameWindow:
        painter->setPen(lineColour(option->palette, true));
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void HouseStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuBarItem || item == nullptr || !item->state.testFlag(State_Selected)) {
        return QProxyStyle::drawControl(element, option, painter, widget);
    }
    QStyleOptionMenuItem reached(*item);
    reached.state |= State_Sunken; // an entry that the keys reached looks like one that is pressed
    QProxyStyle::drawControl(element, &reached, painter, widget);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const
{
    const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control == CC_TitleBar && bar != nullptr) {
        return drawTitleBar(*bar, painter, widget);
    }
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && slider != nullptr) {
        return drawScrollBar(*slider, painter, widget);
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QSize HouseStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const
{
    constexpr QSize air(10, 0); // a button's caption does not touch its edges
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_PushButton ? size + air : size;
}

void HouseStyle::drawScrollBar(const QStyleOptionSlider& bar, QPainter* painter, const QWidget* widget) const
{
    const QPalette& palette = bar.palette;
    const QColor window = palette.window().color();
    const QColor text = palette.windowText().color();
    const bool enabled = bar.state.testFlag(State_Enabled);
    const auto strength = [&bar, enabled](SubControl part) {
        const bool touched = enabled && bar.activeSubControls.testFlag(part);
        return touched && bar.state.testFlag(State_Sunken) ? 0.55 : touched ? 0.45 : 0.3;
    };
    painter->fillRect(bar.rect, between(window, text, 0.08));
    const QRect thumb = proxy()->subControlRect(CC_ScrollBar, &bar, SC_ScrollBarSlider, widget);
    const bool focused = bar.state.testFlag(State_HasFocus);
    if (enabled && bar.minimum < bar.maximum) {
        const QColor accent = palette.highlight().color();
        const QColor fill = between(window, text, strength(SC_ScrollBarSlider));
        drawPlate(painter, thumb.adjusted(1, 1, -1, -1), focused ? accent : fill, focused ? accent : fill);
    }
    const bool flat = bar.orientation == Qt::Horizontal;
    for (const SubControl part : {SC_ScrollBarSubLine, SC_ScrollBarAddLine}) {
        const bool back = (part == SC_ScrollBarSubLine) != (flat && bar.direction == Qt::RightToLeft);
        QStyleOption arrow(bar);
        arrow.rect = proxy()->subControlRect(CC_ScrollBar, &bar, part, widget).adjusted(2, 2, -2, -2);
        arrow.palette.setColor(QPalette::WindowText, between(window, text, strength(part) + 0.3));
        const PrimitiveElement forward = flat ? PE_IndicatorArrowRight : PE_IndicatorArrowDown;
        const PrimitiveElement backward = flat ? PE_IndicatorArrowLeft : PE_IndicatorArrowUp;
        proxy()->drawPrimitive(back ? backward : forward, &arrow, painter, widget);
    }
}

void HouseStyle::drawTitleBar(const QStyleOptionTitleBar& bar, QPainter* painter, const QWidget* widget) const
{
    const QPalette& palette = bar.palette;
    const QColor ground = isActive(bar) ? palette.highlight().color() : palette.midlight().color();
    painter->save();
    painter->fillRect(bar.rect, ground);
    painter->setPen(isActive(bar) ? palette.highlightedText().color() : palette.windowText().color());
    constexpr int afterIcon = 8;
    const QRect place =
        proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarLabel, widget).adjusted(afterIcon, 0, 0, 0);
    const QString text = painter->fontMetrics().elidedText(bar.text, Qt::ElideRight, place.width());
    painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text);
    for (const SubControl button : titleButtons(bar)) {
        drawTitleButton(button, bar, painter, widget);
    }
    if (bar.titleBarFlags.testFlag(Qt::WindowSystemMenuHint) && !bar.icon.isNull()) {
        bar.icon.paint(painter, proxy()->subControlRect(CC_TitleBar, &bar, SC_TitleBarSysMenu, widget));
    }
    painter->restore();
}

void HouseStyle::drawTitleButton(SubControl button, const QStyleOptionTitleBar& bar, QPainter* painter,
                                 const QWidget* widget) const
{
    constexpr qreal signSize = 9;
    const QRect place = proxy()->subControlRect(CC_TitleBar, &bar, button, widget);
    const bool touched = bar.activeSubControls.testFlag(button);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (touched && (bar.state & (State_MouseOver | State_Sunken))) {
        QColor glow = painter->pen().color();
        glow.setAlphaF(bar.state.testFlag(State_Sunken) ? 0.35F : 0.2F);
        painter->fillRect(place, glow);
    }
    painter->setPen(QPen(painter->pen().color(), 1.2));
    painter->translate(QRectF(place).center() - QPointF(signSize / 2, signSize / 2));
    painter->drawPath(titleSign(button));
    painter->restore();
}
