// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/NodeKind.h"
#include "host/report/CDelays.h"

#include <QString>

#include <cstddef>
#include <optional>

namespace Host {

/// What one connection of a run carried.
struct SConnectionReport
{
    std::size_t from = 0; ///< Numbers of nodes.
    std::size_t to = 0;
    QString outPort; ///< The name of the port, or "port 1" where its node has several on that side; else empty.
    QString inPort;
    QString type; ///< "VGR", or "VGR to IMG" with a conversion.
    quint64 delivered = 0;
};

/// What one node of a run did. Nothing stands where nothing was measured, or where a model tells nothing.
struct SNodeReport
{
    ENodeKind kind = ENodeKind::Filter;
    QString name; ///< Its number in the graph and its caption.
    std::optional<quint64> in;
    std::optional<quint64> out;
    std::optional<double> framesPerSecond;
    Delay computing;  ///< Median of a frame's own work, as the model tells it.
    Delay worked;     ///< The sum of all of that work, on whatever cores.
    Delay grabToHere; ///< Median, from the camera's stream to the node's input.
    Delay grabToHere99;
    std::optional<quint64> dropped; ///< With what empty data cancelled.
    std::optional<quint64> pending;
    QString lastError;
};

} // namespace Host
