// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphColors.h"

#include "host/base/NodeKind.h"
#include "host/viewer/base/Theme.h"

#include <QHash>

#include <array>

namespace Host {

namespace {

// The same palette for what stands on \a ground.
QPalette paletteOn(const QColor& ground, QPalette palette)
{
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Text));
    return palette;
}

bool isBaseDark(const QPalette& palette)
{
    return isDark(paletteOn(palette.color(QPalette::Base), palette));
}

QColor mixed(const QColor& one, const QColor& other, double share)
{
    const auto mix = [share](double left, double right) { return left * (1 - share) + right * share; };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

struct SKnownColors
{
    SGraphColors colors;
    bool isDark = false;
};

SGraphColors makeColors(const QPalette& palette, bool dark)
{
    const QColor& base = palette.color(QPalette::Base);
    const QColor& text = palette.color(QPalette::Text);
    SGraphColors colors;
    colors.node = dark ? mixed(base, text, 0.08) : base;
    colors.canvas = dark ? mixed(base, Qt::black, 0.25) : mixed(base, text, 0.05);
    colors.grid = mixed(colors.canvas, text, 0.12);
    colors.border = mixed(colors.node, text, 0.35);
    colors.text = text;
    colors.dimText = mixed(colors.node, text, 0.68);
    colors.selection = palette.color(QPalette::Highlight);
    const QPalette onNode = paletteOn(colors.node, palette);
    colors.warning = accentColor(EAccent::Warning, onNode);
    colors.error = accentColor(EAccent::Error, onNode);
    colors.busy = accentColor(EAccent::Active, onNode);
    return colors;
}

// To find readable colours takes longer than to draw a node with them, and each item asks each time that it is drawn.
const SKnownColors& knownColors(const QPalette& palette)
{
    constexpr int mostPalettes = 16; // of the views of one window, in a few colours
    static QHash<qint64, SKnownColors> known;
    const qint64 key = palette.cacheKey();
    const auto found = known.constFind(key);
    if (found != known.constEnd())
        return found.value();
    if (known.size() >= mostPalettes)
        known.clear();
    const bool dark = isBaseDark(palette);
    return known.insert(key, {makeColors(palette, dark), dark}).value();
}

QColor hueColor(int hue, const QPalette& palette)
{
    return QColor::fromHsl(hue, 150, knownColors(palette).isDark ? 165 : 95);
}

} // namespace

SGraphColors graphColors(const QPalette& palette)
{
    return knownColors(palette).colors;
}

QColor typeColor(const QString& typeId, const QPalette& palette)
{
    constexpr std::array<int, 8> hues{215, 130, 30, 285, 175, 330, 55, 95};
    uint sum = 0; // not qHash(), which differs from run to run
    for (const QChar letter : typeId)
        sum = sum * 31 + letter.unicode();
    return hueColor(hues[sum % hues.size()], palette);
}

QColor kindColor(ENodeKind kind, const QPalette& palette)
{
    switch (kind) {
    case ENodeKind::Source:
        return hueColor(140, palette);
    case ENodeKind::Decoupler:
        return hueColor(275, palette);
    case ENodeKind::Sink:
        return hueColor(25, palette);
    case ENodeKind::Filter:
        break;
    }
    return hueColor(210, palette);
}

QColor headColor(ENodeKind kind, const QPalette& palette)
{
    return mixed(graphColors(palette).node, kindColor(kind, palette), 0.12);
}

} // namespace Host
