// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/Theme.h"

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// Hue in degrees, saturation of 255.
struct SHue
{
    int hue;
    int saturation;
};

SHue hueOf(EAccent accent)
{
    switch (accent) {
    case EAccent::Good:
        return {150, 200};
    case EAccent::Warning:
        return {36, 230};
    case EAccent::Error:
        return {2, 200};
    case EAccent::Active:
        break;
    }
    return {206, 220};
}

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// As near to the ground as it can still be read.
QColor dimmed(const QColor& text, const QColor& window, const QColor& base)
{
    constexpr int steps = 64;
    QColor color = text;
    for (int share = 1; share < steps; ++share) {
        const auto mix = [share](int from, int to) { return (from * (steps - share) + to * share) / steps; };
        const QColor next(mix(text.red(), window.red()), mix(text.green(), window.green()),
                          mix(text.blue(), window.blue()));
        if (std::min(contrast(next, window), contrast(next, base)) < leastContrast)
            break;
        color = next;
    }
    return color;
}

QPalette makePalette(const QColor& window, const QColor& base, const QColor& text, const QColor& highlight)
{
    QPalette palette(window, window); // works out the shades of frames
    const QColor dim = dimmed(text, window, base);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, dim);
    }
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, dim);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accentColor(EAccent::Active, palette));
    return palette;
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [less, more] = std::minmax({luminance(one), luminance(other)});
    return (more + 0.05) / (less + 0.05);
}

bool isDark(const QPalette& palette)
{
    return luminance(palette.color(QPalette::WindowText)) > luminance(palette.color(QPalette::Window));
}

QColor accentColor(EAccent accent, const QPalette& palette)
{
    const SHue hue = hueOf(accent);
    const QColor& window = palette.color(QPalette::Window);
    const QColor& base = palette.color(QPalette::Base);
    const bool onDark = isDark(palette);
    // From the middle towards the text's end, as far as it must be and no farther: the more colour remains.
    QColor color;
    for (int lightness = 128; lightness >= 0 && lightness <= 255; lightness += onDark ? 1 : -1) {
        color = QColor::fromHsl(hue.hue, hue.saturation, lightness).rgb(); // as the screen has it
        if (std::min(contrast(color, window), contrast(color, base)) >= leastContrast)
            break;
    }
    return color;
}

QColor recordColor(const QPalette& palette)
{
    return accentColor(EAccent::Error, palette);
}

QPalette lightPalette()
{
    return makePalette(QColor(0xf2, 0xf3, 0xf5), QColor(0xff, 0xff, 0xff), QColor(0x1d, 0x22, 0x28),
                       QColor(0x1f, 0x6f, 0xb2));
}

QPalette darkPalette()
{
    return makePalette(QColor(0x23, 0x27, 0x2c), QColor(0x19, 0x1c, 0x20), QColor(0xe6, 0xe9, 0xed),
                       QColor(0x2a, 0x6f, 0xab));
}

} // namespace Host
