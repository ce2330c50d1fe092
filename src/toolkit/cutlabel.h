/// A label for an author's value: it takes the place that there is, and a longer text ends with "…".
#pragma once

#include <QLabel>

class CutLabel : public QLabel
{
    Q_OBJECT

public:
    CutLabel(const QString& text, QWidget* parent);

    /// Shows a value; the tooltip tells more of it than fits.
    void setValue(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;
};
