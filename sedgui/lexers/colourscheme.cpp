#include "lexers/colourscheme.h"

#include <QCoreApplication>
#include <QPalette>

#include <cmath>

namespace koru::sedgui {

namespace {

const QString s_automatic = QStringLiteral("automatic");
const QString s_light = QStringLiteral("light");
const QString s_dark = QStringLiteral("dark");
const QString s_highContrastLight = QStringLiteral("high-contrast-light");
const QString s_highContrastDark = QStringLiteral("high-contrast-dark");

QColor rgb(QRgb value)
{
    return QColor::fromRgb(value);
}

// Relative luminance of an sRGB colour.
double luminance(const QColor &colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) +
           0.0722 * linear(rgb.blueF());
}

} // namespace

QString ColourScheme::automaticId()
{
    return s_automatic;
}

QStringList ColourScheme::ids()
{
    return {s_light, s_dark, s_highContrastLight, s_highContrastDark};
}

QString ColourScheme::displayName(const QString &id)
{
    if (id == s_light)
        return QCoreApplication::translate("koru::sedgui::ColourScheme", "Light");
    if (id == s_dark)
        return QCoreApplication::translate("koru::sedgui::ColourScheme", "Dark");
    if (id == s_highContrastLight)
        return QCoreApplication::translate("koru::sedgui::ColourScheme", "High contrast light");
    if (id == s_highContrastDark)
        return QCoreApplication::translate("koru::sedgui::ColourScheme", "High contrast dark");
    return QCoreApplication::translate("koru::sedgui::ColourScheme",
                                       "Automatic (follows the desktop)");
}

bool ColourScheme::isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

ColourScheme ColourScheme::byId(const QString &id, const QPalette &palette)
{
    if (id == s_light)
        return light();
    if (id == s_dark)
        return dark();
    if (id == s_highContrastLight)
        return highContrastLight();
    if (id == s_highContrastDark)
        return highContrastDark();
    return isDark(palette) ? dark() : light();
}

double ColourScheme::contrast(const QColor &a, const QColor &b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

// Every foreground below reads at 4.5:1 or more on its paper, the default
// text at 7:1 or more; the high-contrast pair keeps everything above 7:1.
ColourScheme ColourScheme::light()
{
    ColourScheme scheme;
    scheme.m_id = s_light;
    scheme.m_paper = rgb(0xfbfbf9);
    scheme.m_roles = {rgb(0x1c1c1c), rgb(0x5d6b5d), rgb(0x1d3fa8), rgb(0x006272),
                      rgb(0x9a2b16), rgb(0x8a3b00), rgb(0x136b2c), rgb(0x3b3b3b),
                      rgb(0x7b2f8f), rgb(0x262b33), rgb(0x7a5000), rgb(0xb3001b)};
    scheme.m_errorPaper = rgb(0xfde8ea);
    scheme.m_marginPaper = rgb(0xeeeeea);
    scheme.m_lineNumbers = rgb(0x5c5c5c);
    scheme.m_currentLine = rgb(0xeef2f8);
    scheme.m_selectionPaper = rgb(0xb9d1f0);
    scheme.m_selectionText = rgb(0x101010);
    scheme.m_caret = rgb(0x101010);
    scheme.m_whitespace = rgb(0x9a9a9a);
    scheme.m_bracePaper = rgb(0xc9ecd0);
    scheme.m_braceText = rgb(0x0b3d16);
    scheme.m_unmatchedBrace = rgb(0xc00020);
    scheme.m_foldMargin = rgb(0xf4f4f1);
    scheme.m_foldMarker = rgb(0x7a7a7a);
    return scheme;
}

ColourScheme ColourScheme::dark()
{
    ColourScheme scheme;
    scheme.m_id = s_dark;
    scheme.m_paper = rgb(0x1d1f23);
    scheme.m_roles = {rgb(0xdadada), rgb(0x8f9f8c), rgb(0x82a9ff), rgb(0x5cc8c8),
                      rgb(0xe9a07f), rgb(0xf0b86e), rgb(0x9ccf8a), rgb(0xc8c8c8),
                      rgb(0xd49ae8), rgb(0xd0d6e0), rgb(0xe3c567), rgb(0xff8080)};
    scheme.m_errorPaper = rgb(0x3a1e22);
    scheme.m_marginPaper = rgb(0x26282d);
    scheme.m_lineNumbers = rgb(0x8f8f8f);
    scheme.m_currentLine = rgb(0x2a2d33);
    scheme.m_selectionPaper = rgb(0x35507a);
    scheme.m_selectionText = rgb(0xf2f2f2);
    scheme.m_caret = rgb(0xf0f0f0);
    scheme.m_whitespace = rgb(0x5e636b);
    scheme.m_bracePaper = rgb(0x2f5a3a);
    scheme.m_braceText = rgb(0xf2f2f2);
    scheme.m_unmatchedBrace = rgb(0xff6b6b);
    scheme.m_foldMargin = rgb(0x222428);
    scheme.m_foldMarker = rgb(0x8a8f98);
    return scheme;
}

ColourScheme ColourScheme::highContrastLight()
{
    ColourScheme scheme;
    scheme.m_id = s_highContrastLight;
    scheme.m_paper = rgb(0xffffff);
    scheme.m_roles = {rgb(0x000000), rgb(0x2e4a2e), rgb(0x00007a), rgb(0x004950),
                      rgb(0x7a0000), rgb(0x6b2e00), rgb(0x004d00), rgb(0x000000),
                      rgb(0x5a0070), rgb(0x1a1a1a), rgb(0x5a3a00), rgb(0x9e0000)};
    scheme.m_errorPaper = rgb(0xffe0e0);
    scheme.m_marginPaper = rgb(0xe8e8e8);
    scheme.m_lineNumbers = rgb(0x202020);
    scheme.m_currentLine = rgb(0xfff6c8);
    scheme.m_selectionPaper = rgb(0x0a3d91);
    scheme.m_selectionText = rgb(0xffffff);
    scheme.m_caret = rgb(0x000000);
    scheme.m_whitespace = rgb(0x595959);
    scheme.m_bracePaper = rgb(0xffd400);
    scheme.m_braceText = rgb(0x000000);
    scheme.m_unmatchedBrace = rgb(0xc00000);
    scheme.m_foldMargin = rgb(0xf2f2f2);
    scheme.m_foldMarker = rgb(0x202020);
    return scheme;
}

ColourScheme ColourScheme::highContrastDark()
{
    ColourScheme scheme;
    scheme.m_id = s_highContrastDark;
    scheme.m_paper = rgb(0x000000);
    scheme.m_roles = {rgb(0xffffff), rgb(0xa8d8a8), rgb(0x9ec5ff), rgb(0x7ff0f0),
                      rgb(0xffc0a0), rgb(0xffd27f), rgb(0xb8f5a0), rgb(0xffffff),
                      rgb(0xf0b8ff), rgb(0xf0f0f0), rgb(0xffe680), rgb(0xff9a9a)};
    scheme.m_errorPaper = rgb(0x3a0000);
    scheme.m_marginPaper = rgb(0x141414);
    scheme.m_lineNumbers = rgb(0xd8d8d8);
    scheme.m_currentLine = rgb(0x1c1c30);
    scheme.m_selectionPaper = rgb(0xffffff);
    scheme.m_selectionText = rgb(0x000000);
    scheme.m_caret = rgb(0xffffff);
    scheme.m_whitespace = rgb(0xa0a0a0);
    scheme.m_bracePaper = rgb(0x0050c8);
    scheme.m_braceText = rgb(0xffffff);
    scheme.m_unmatchedBrace = rgb(0xff5050);
    scheme.m_foldMargin = rgb(0x0c0c0c);
    scheme.m_foldMarker = rgb(0xd8d8d8);
    return scheme;
}

} // namespace koru::sedgui
