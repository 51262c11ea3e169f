// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QIcon>

namespace Host {

/// What the icon of an action of an image dock shows.
enum class ELineIcon
{
    Fit,
    OneToOne,
    Rectangle,
    Colors,
    Range,
    Histogram,
    Save,
    Copy,
    Record,
    Stop
};

/// Drawn with lines in the text colour of the application's palette, sharp at every size and resolution. It follows a
/// palette that changes.
QIcon lineIcon(ELineIcon shape);

} // namespace Host
