// The colours of the program and what chooses them.
#include "toolkit/desktopscheme.h"
#include "toolkit/theme.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace
{

/// The contrast of two colours, 1 to 21, as the guidelines for accessible pages count it.
double contrast(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

TEST(Theme, TextsStandOutFromTheirGrounds)
{
    using Role = QPalette::ColorRole;
    constexpr std::pair<Role, Role> pairs[] = {
        {Role::WindowText, Role::Window},         {Role::Text, Role::Base},
        {Role::Text, Role::AlternateBase},        {Role::ButtonText, Role::Button},
        {Role::HighlightedText, Role::Highlight}, {Role::Link, Role::Window},
        {Role::LinkVisited, Role::Window},        {Role::PlaceholderText, Role::Base},
        {Role::WindowText, Role::Midlight},       {Role::ToolTipText, Role::ToolTipBase}};
    for (const Scheme scheme : {Scheme::Light, Scheme::Dark}) {
        const QPalette palette = colours(scheme);
        EXPECT_EQ(palette.window().color().lightness() < 128, scheme == Scheme::Dark);
        for (const auto& [text, ground] : pairs) {
            SCOPED_TRACE(testing::Message() << "text " << text << " on " << ground);
            EXPECT_GE(contrast(palette.color(text), palette.color(ground)), 4.5);
        }
    }
}

TEST(Theme, FollowsTheDesktop)
{
    for (const char* theme : {"Yaru-dark", "Adwaita:dark", "Adwaita"}) {
        qputenv("GTK_THEME", theme);
        EXPECT_EQ(DesktopScheme(nullptr).current() == Scheme::Dark, std::string(theme) != "Adwaita") << theme;
    }
    DesktopScheme desktop(nullptr);
    qunsetenv("GTK_THEME");
    std::vector<Scheme> changes;
    QObject::connect(&desktop, &DesktopScheme::changed,
                     [&changes](Scheme scheme) { changes.push_back(scheme); });
    const auto tell = [&desktop](const char* group, const char* key, const QVariant& value) {
        QMetaObject::invokeMethod(&desktop, "noteSetting", Q_ARG(QString, QString::fromLatin1(group)),
                                  Q_ARG(QString, QString::fromLatin1(key)),
                                  Q_ARG(QDBusVariant, QDBusVariant(value)));
    };
    tell("org.freedesktop.appearance", "color-scheme", 1U);
    tell("org.freedesktop.appearance", "accent-color", 2U);
    tell("org.gnome.desktop.interface", "color-scheme", 2U);
    EXPECT_EQ(changes, std::vector{Scheme::Dark});
    tell("org.freedesktop.appearance", "color-scheme", QVariant::fromValue(QDBusVariant(2U)));
    EXPECT_EQ(changes, (std::vector{Scheme::Dark, Scheme::Light}));
}
