// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace Host {

class CCameraStream;
class IHostModels;
struct SRunOptions;
struct SRunReport;

/// What a run with \a options will write into its folder, as CRunFolder::begin() takes it.
QStringList runClaims(const SRunOptions& options, const std::vector<std::unique_ptr<CCameraStream>>& streams);

/// Whether the sinks of all are done with their files, as CRunFolder::finish() takes it.
bool areFilesWritten(const std::vector<std::unique_ptr<CCameraStream>>& streams);

/// What is known of a run before it begins: the command, versions, the chain.
QJsonObject runFacts(const SRunOptions& options, const IHostModels& models);

/// What is known of it at its end: cameras with their counts, what was set meanwhile, why the first of them ended and
/// what was wrong.
QJsonObject runOutcome(const std::vector<SRunReport>& reports, const QJsonArray& liveSettings, const QString& error);

} // namespace Host
