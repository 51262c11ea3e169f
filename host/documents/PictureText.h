// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/documents/SPicture.h"

#include <QByteArray>

namespace Host {

/// Up to so many nodes, and so many connections, a picture is laid out in layers, which takes longer the more
/// there are: from left to right, or from top to bottom where that would be too wide for a page. Larger ones are laid
/// out by forces between their nodes, and their connections tell no types.
constexpr std::size_t mostInLayers = 500;

/// Larger pictures would take minutes, and nobody could see anything in them.
constexpr std::size_t mostDrawn = 20000;

/// Whether it is laid out in layers.
bool isLayered(const SPicture& picture);

/// The picture in the DOT language: rounded boxes in calm colours, green for sources, yellow and dashed for decouplers,
/// blue for sinks.
QByteArray dotText(const SPicture& picture);

} // namespace Host
