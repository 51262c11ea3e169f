// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

namespace Host {

enum class ENodeKind;

/// What a graph is drawn in. A plain value.
struct SGraphColors
{
    QColor canvas;
    QColor grid;
    QColor node;
    QColor border;
    QColor text;
    QColor dimText;
    QColor selection;
    QColor warning; ///< As text on a node, too.
    QColor error;
    QColor busy;
};

/// For a light or a dark palette. The text colours have a contrast of 4.5 or more on a node. All of these are for the
/// main thread.
SGraphColors graphColors(const QPalette& palette);

/// Data of one type has one colour. Many types share a few.
QColor typeColor(const QString& typeId, const QPalette& palette);

QColor kindColor(ENodeKind kind, const QPalette& palette);

/// What the head of such a node is filled with; texts can be read on it as on the node.
QColor headColor(ENodeKind kind, const QPalette& palette);

} // namespace Host
