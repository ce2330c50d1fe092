/// The edge between the core's text (Windows-1252 bytes) and the toolkit's strings.
#pragma once

#include <optional>
#include <QString>
#include <string>
#include <string_view>

/// The address that error messages end with.
inline constexpr QLatin1StringView supportSite("www.questforge.example/forum");

/// The core's text as the toolkit shows it.
QString shown(std::string_view ansi);

/// What an author typed, as the core keeps it: on one line, composed characters, "?" for those that the code
/// page lacks.
std::string typed(const QString& text);

/// A text short enough to be shown at once; a longer one is cut and ends with "…".
QString shortened(const QString& text);

/// The whole number that an author typed (see WholeNumber16), read as the user's locale writes numbers.
std::optional<int> typedNumber(QString text);
