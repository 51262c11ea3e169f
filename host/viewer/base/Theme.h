// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QColor>
#include <QPalette>

namespace Host {

/// What a colour beside those of the palette says.
enum class EAccent
{
    Good,    ///< All is well, frames flow.
    Warning, ///< Something to look at.
    Error,   ///< Something is wrong.
    Active   ///< What happens now: a computing node, a recording.
};

/// Margins and distances are whole or half multiples of this, in device-independent pixels.
constexpr int gridStep = 8;

/// The colour of \a accent for texts and lines on the window and on the base colour of \a palette: their contrast is at
/// least leastContrast.
QColor accentColor(EAccent accent, const QPalette& palette);

/// The red of what records, and of the button that begins it; as readable as an accent.
QColor recordColor(const QPalette& palette);

constexpr double leastContrast = 4.5;

/// Between 1, for two equal colours, and 21, for black and white.
double contrast(const QColor& one, const QColor& other);

/// Whether its texts are lighter than what they stand on.
bool isDark(const QPalette& palette);

/// The palettes of the program where it does not follow the desktop's.
QPalette lightPalette();
QPalette darkPalette();

} // namespace Host
