// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/graph/GraphColors.h"

#include "host/base/NodeKind.h"

#include <array>

namespace Host {

namespace {

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor mixed(const QColor& one, const QColor& other, double share)
{
    const auto mix = [share](double left, double right) { return left * (1 - share) + right * share; };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                            mix(one.blueF(), other.blueF()));
}

QColor hueColor(int hue, const QPalette& palette)
{
    return QColor::fromHsl(hue, 150, isDark(palette) ? 165 : 95);
}

} // namespace

SGraphColors graphColors(const QPalette& palette)
{
    const bool dark = isDark(palette);
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
    colors.warning = dark ? QColor(0xff, 0xb8, 0x4d) : QColor(0x8a, 0x53, 0x00);
    colors.error = dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb3, 0x1b, 0x1b);
    colors.busy = dark ? QColor(0xfb, 0xbf, 0x24) : QColor(0xe0, 0x7b, 0x00);
    return colors;
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

} // namespace Host
