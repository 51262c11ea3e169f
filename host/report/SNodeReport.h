// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/report/CDelays.h"

#include <QString>

#include <optional>

namespace Host {

/// What one node of a run did. Nothing stands where nothing was measured, or where a model tells nothing.
struct SNodeReport
{
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
