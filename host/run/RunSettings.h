// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <QString>

#include <vector>

namespace Host {

class CStreamGraph;

/// Sets them in their order. Returns what is wrong with the first that is not taken; empty on success.
QString applySettings(CStreamGraph& graph, const std::vector<SNodeSetting>& settings);

/// Does what "set NODE.key=value" says. Returns what is wrong, in one line; empty on success.
QString obey(CStreamGraph& graph, const QString& line);

} // namespace Host
