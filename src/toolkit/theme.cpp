#include "toolkit/theme.h"

#include "toolkit/desktopscheme.h"
#include "toolkit/housestyle.h"
#include "toolkit/pictures.h"

#include <algorithm>
#include <array>
#include <QApplication>
#include <QPixmapCache>
#include <QToolTip>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int fontPoints = 9;

using Role = QPalette::ColorRole;

struct RoleColours {
    Role role;
    QRgb light;
    QRgb dark;
};

constexpr std::array roleColours = {
    RoleColours{Role::Window, 0xfff3f4f7, 0xff262a33},
    RoleColours{Role::WindowText, 0xff1e2430, 0xffe6e9ef},
    RoleColours{Role::Base, 0xffffffff, 0xff1c1f26},
    RoleColours{Role::AlternateBase, 0xfff7f8fa, 0xff21252d},
    RoleColours{Role::Text, 0xff1e2430, 0xffe6e9ef},
    RoleColours{Role::Button, 0xfffcfcfd, 0xff343a46},
    RoleColours{Role::ButtonText, 0xff1e2430, 0xffe6e9ef},
    RoleColours{Role::BrightText, 0xffffffff, 0xffffffff},
    RoleColours{Role::Highlight, 0xff2f6db5, 0xff3672bc},
    RoleColours{Role::HighlightedText, 0xffffffff, 0xffffffff},
    RoleColours{Role::Link, 0xff2a62a3, 0xff7fb0ea},
    RoleColours{Role::LinkVisited, 0xff6f5da8, 0xffb4a4e6},
    RoleColours{Role::PlaceholderText, 0xff606a7c, 0xff9aa3b2},
    RoleColours{Role::ToolTipBase, 0xff2a3142, 0xffe6e9ef},
    RoleColours{Role::ToolTipText, 0xffffffff, 0xff1e2430},
    RoleColours{Role::Light, 0xffffffff, 0xff454c5a},
    RoleColours{Role::Midlight, 0xffe6e9ef, 0xff3a404d},
    RoleColours{Role::Mid, 0xffc3c9d4, 0xff1f232a},
    RoleColours{Role::Dark, 0xffd3d8e1, 0xff15181e},
    RoleColours{Role::Shadow, 0xff8a93a6, 0xff0c0e12},
};

constexpr std::pair<QRgb, QRgb> disabledText(0xff838c9c, 0xff7a8291);

void wear(Scheme scheme)
{
    const QPalette palette = colours(scheme);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace

void dress(QApplication& application)
{
    // Each view would leave small pictures there that no other view asks for, and memory would grow with
    // their number.
    QPixmapCache::setCacheLimit(0);
    QApplication::setStyle(new HouseStyle);
    QApplication::setFont(QFont(u"Liberation Sans"_s, fontPoints));
    QApplication::setWindowIcon(programIcon());
    auto* desktop = new DesktopScheme(&application);
    wear(desktop->current());
    QObject::connect(desktop, &DesktopScheme::changed, &application, &wear);
}

QPalette colours(Scheme scheme)
{
    const bool dark = scheme == Scheme::Dark;
    QPalette palette;
    for (const RoleColours& each : roleColours) {
        palette.setColor(each.role, QColor(dark ? each.dark : each.light));
    }
    const QColor faint(dark ? disabledText.second : disabledText.first);
    for (const Role role : {Role::WindowText, Role::Text, Role::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

QFont codeFont()
{
    QFont font(u"Liberation Mono"_s);
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(QApplication::font().pointSizeF());
    return font;
}

QFont headingFont(double factor)
{
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(true);
    return font;
}

qreal letterScale()
{
    constexpr qreal usualPixels = 12;
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / usualPixels);
}

QColor between(const QColor& first, const QColor& second, double part)
{
    const auto mixed = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mixed(first.red(), second.red()), mixed(first.green(), second.green()),
            mixed(first.blue(), second.blue())};
}
