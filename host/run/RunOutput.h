// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonArray>
#include <QString>

#include <memory>
#include <vector>

namespace Plugin::Halvex {
class CNodeScene;
}

namespace Host {

class CCameraStream;
class CHostServices;
class CTraceFile;
struct SRunOptions;
struct SRunReport;

/// How far all cameras together are, in a line: "30/300 frames, 10 %, 196.2 per second, ...". \a frames is what each
/// is to give; 0 for no end. Each camera has its own rate in it. Empty before the first frame.
QString runProgress(const std::vector<std::unique_ptr<CCameraStream>>& streams, int frames);

/// The same, and behind it why the run ended; \a end may be empty.
QString lastProgress(const std::vector<std::unique_ptr<CCameraStream>>& streams, int frames, const QString& end);

/// Why a run ended: by \a error or \a signal, if there is one, or as it was asked to.
QString runEnding(const SRunOptions& options, const QString& error, int signal, bool isTimeUp);

/// What the first stream ended at that came to its own end, such as "at the end of the images"; empty if none did.
QString runOutText(const std::vector<std::unique_ptr<CCameraStream>>& streams);

/// The reports one after the other, for the terminal that standard output leads to. Of a run that \a hasFailed those of
/// cameras that gave no frame are left out.
QString runText(const std::vector<SRunReport>& reports, bool hasFailed);

/// Whether the scene, the report and the trace could be written now, where the run is asked for them. Nothing is
/// changed. Returns what is wrong, in one line; empty on success.
QString tryDocuments(const SRunOptions& options);

/// Writes the scene document of the first stream to \a file, or to standard output for "-". Does nothing without a
/// name. A document that no run would load is not written: there are settings that only a run takes. Returns what is
/// wrong; empty on success.
QString saveScene(const QString& file, const CHostServices& services,
                  const std::vector<std::unique_ptr<CCameraStream>>& streams);

/// A trace in \a file, "-" for standard output, or null without a name, that the streams, once they are started, tell
/// of everything. On failure the reason in \a error.
std::shared_ptr<CTraceFile> openTrace(const QString& file, const std::vector<std::unique_ptr<CCameraStream>>& streams,
                                      QString* error);

/// Writes graph.txt and graph.dot into \a folder. Returns what is wrong; empty on success.
QString writeGraphFiles(const Plugin::Halvex::CNodeScene& scene, const QString& folder);

/// Writes the reports to \a file, whose folder is made if it has gone, or to standard output for "-", with what was set
/// while frames streamed. \a error is what the run failed with. Returns what is wrong, in one line; empty on success.
QString writeRunJson(const QString& file, const std::vector<SRunReport>& reports, const QJsonArray& liveSettings,
                     const QString& error);

} // namespace Host
