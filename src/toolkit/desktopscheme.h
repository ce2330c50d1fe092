/// Whether the desktop asks for light or dark windows.
#pragma once

#include "toolkit/theme.h"

#include <QDBusVariant>
#include <QObject>

/// Asks, in this order: the theme that the environment forces on windows, the desktop's settings portal, and
/// the colours that the toolkit took over from the system. Light where none of them says anything.
class DesktopScheme : public QObject
{
    Q_OBJECT

public:
    explicit DesktopScheme(QObject* parent);

    Scheme current() const { return current_; }

Q_SIGNALS:
    /// The author chose the other one while the program runs.
    void changed(Scheme scheme);

private Q_SLOTS:
    void noteSetting(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void askPortal();
    void take(Scheme scheme);

    Scheme current_ = Scheme::Light;
};
