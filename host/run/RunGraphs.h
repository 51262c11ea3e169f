// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/SRunOptions.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace Host {

class CHostServices;
class CStreamGraph;

/// What the frames of a run go through.
struct SRunGraphs
{
    std::vector<std::unique_ptr<CStreamGraph>> graphs; ///< For each source, in the order of the options.
    std::vector<QByteArray> chains;                    ///< What was imported, as it was read.
};

/// Imports the chains that \a options name, or loads their scene. On failure the reason in \a error.
SRunGraphs buildRunGraphs(const SRunOptions& options, const CHostServices& services, QString* error);

/// The names of the files that \a count chains are written into: "chain.json", "chain-2.json"...
QStringList chainFiles(std::size_t count);

/// Writes the chains into \a folder, into chainFiles(). Returns what is wrong; empty on success.
QString writeChains(const std::vector<QByteArray>& chains, const QString& folder);

} // namespace Host
