#include "toolkit/desktopscheme.h"

#include <optional>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QGuiApplication>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView portal("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView portalPath("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView portalSettings("org.freedesktop.portal.Settings");
constexpr QLatin1StringView settingGroup("org.freedesktop.appearance");
constexpr QLatin1StringView settingKey("color-scheme");

/// The scheme that a forced theme's name asks for, as in "Adwaita:dark".
std::optional<Scheme> forcedScheme()
{
    const QString theme = qEnvironmentVariable("GTK_THEME");
    if (theme.isEmpty()) {
        return {};
    }
    return theme.endsWith("dark"_L1, Qt::CaseInsensitive) ? Scheme::Dark : Scheme::Light;
}

Scheme toolkitScheme()
{
    const QPalette palette = QGuiApplication::palette();
    const bool dark = palette.window().color().lightness() < palette.windowText().color().lightness();
    return dark ? Scheme::Dark : Scheme::Light;
}

/// The scheme that a setting's value stands for; none for "no preference". Older portals wrap it twice.
std::optional<Scheme> schemeOf(QVariant value)
{
    constexpr uint preferDark = 1;
    constexpr uint preferLight = 2;
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    switch (value.toUInt()) {
    case preferDark:
        return Scheme::Dark;
    case preferLight:
        return Scheme::Light;
    default:
        return {};
    }
}

} // namespace

DesktopScheme::DesktopScheme(QObject* parent)
    : QObject(parent)
    , current_(toolkitScheme())
{
    if (const auto forced = forcedScheme()) {
        current_ = *forced;
    } else if (qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")) { // else a bus would be started for us
        askPortal();
    }
}

void DesktopScheme::askPortal()
{
    constexpr int patience = 100; // ms; a start does not wait for a portal that is asleep
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, portalSettings, u"Read"_s);
    question << QString(settingGroup) << QString(settingKey);
    question.setAutoStartService(false);
    const QDBusReply<QDBusVariant> reply = bus.call(question, QDBus::Block, patience);
    if (reply.isValid()) {
        current_ = schemeOf(reply.value().variant()).value_or(current_);
    }
    bus.connect(portal, portalPath, portalSettings, u"SettingChanged"_s, this,
                SLOT(noteSetting(QString, QString, QDBusVariant)));
}

void DesktopScheme::noteSetting(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == settingGroup && key == settingKey) {
        take(schemeOf(value.variant()).value_or(Scheme::Light));
    }
}

void DesktopScheme::take(Scheme scheme)
{
    if (scheme != current_) {
        current_ = scheme;
        Q_EMIT changed(scheme);
    }
}
