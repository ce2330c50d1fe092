#include "toolkit/text.h"

#include "store/codepage.h"
#include "store/numbers.h"

#include <QLocale>

namespace
{

// What some locales write in numbers though the code page lacks it, and what stands for it.
constexpr QChar narrowBlank(0x202F);
constexpr QChar noBreakBlank(0x00A0);
constexpr QChar minusSign(0x2212);

/// The bytes of a locale's mark; empty when the code page lacks it.
std::string markBytes(QString mark)
{
    const std::string bytes = typed(mark.replace(narrowBlank, noBreakBlank));
    return bytes.find('?') == std::string::npos ? bytes : std::string();
}

NumberMarks localeMarks()
{
    const QLocale locale = QLocale::system();
    const std::string decimal = markBytes(locale.decimalPoint());
    const std::string group = markBytes(locale.groupSeparator());
    NumberMarks marks;
    marks.decimal = decimal.empty() ? marks.decimal : decimal.front();
    marks.group = group.empty() ? '\0' : group.front();
    marks.currency = markBytes(locale.currencySymbol());
    return marks;
}

} // namespace

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

std::optional<int> typedNumber(QString text)
{
    return WholeNumber16(typed(text.replace(narrowBlank, noBreakBlank).replace(minusSign, u'-')),
                         localeMarks());
}
