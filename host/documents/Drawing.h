// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QString>

namespace Host {

enum class EDrawing
{
    Svg,
    Png,
    Dot,
    Plain ///< Where everything stands, as text, a line for each node.
};

/// What \a dot, text of the DOT language, looks like, as a file of that kind; it says its layout itself. EDrawing::Dot
/// is the text as it is. On failure nothing, with the reason in \a error.
QByteArray draw(const QByteArray& dot, EDrawing kind, QString* error);

} // namespace Host
