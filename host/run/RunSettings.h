// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <QJsonArray>
#include <QString>

#include <memory>
#include <vector>

namespace Host {

class CCameraStream;
class CLineReader;
class CStreamGraph;

/// Sets them in their order, so that of two values for one setting the last counts. Returns what is wrong with each
/// that is not taken, a line each; empty on success.
QString applySettings(CStreamGraph& graph, const std::vector<SNodeSetting>& settings);

/// Does what each line "set NODE.key=value" on standard input says in each graph that is intact, as long as the reader
/// lives, which must not be longer than \a streams and \a taken. Standard error tells what was set; \a taken gets it
/// with the seconds since this call. What is wrong is told there, too, and the run goes on: frames are being recorded.
std::unique_ptr<CLineReader> obeyStandardInput(const std::vector<std::unique_ptr<CCameraStream>>& streams,
                                               QJsonArray* taken);

} // namespace Host
