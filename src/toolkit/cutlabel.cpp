#include "toolkit/cutlabel.h"

#include "toolkit/text.h"

#include <QPainter>
#include <QStyle>
#include <QTextDocument>

CutLabel::CutLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setMinimumWidth(1);
}

void CutLabel::setValue(const QString& value)
{
    setText(value);
    setToolTip(Qt::convertFromPlainText(shortened(value)));
}

void CutLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString fitting = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          fitting, foregroundRole());
}
