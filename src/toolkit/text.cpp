#include "toolkit/text.h"

#include "store/codepage.h"

#include <QLocale>

QString shown(std::string_view ansi)
{
    return QString::fromStdString(Utf8FromAnsi(ansi));
}

std::string typed(const QString& text)
{
    return OneLine(AnsiFromUtf8(text.normalized(QString::NormalizationForm_C).toStdString()));
}

QString shortened(const QString& text)
{
    constexpr qsizetype longest = 500;
    return text.size() <= longest ? text : text.left(longest) + QChar(0x2026);
}

NumberMarks localeMarks()
{
    const QLocale locale = QLocale::system();
    const std::string decimal = typed(locale.decimalPoint());
    const std::string group = typed(locale.groupSeparator());
    NumberMarks marks;
    marks.decimal = decimal.empty() ? marks.decimal : decimal.front();
    // A narrow blank has no byte of its own: people type a blank for it.
    marks.group = group.empty()                                     ? '\0'
                  : group.front() == '?' || group.front() == '\xA0' ? ' '
                                                                    : group.front();
    return marks;
}
