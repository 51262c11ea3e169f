// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace Host {

/// Throws CLI::ValidationError with \a sentence.
[[noreturn]] void refuse(const QString& sentence);

/// Refuses a run that would replace \a file while it uses it, unless that is empty.
void refuseShared(const QString& file);

/// The whole number from \a least to \a most that \a text is; refuses everything else, with the name of \a option.
int readCount(const char* option, const std::string& text, int least, int most);

/// The number above 0 and up to \a most that \a text is; refuses everything else.
double readRate(const char* option, const std::string& text, double most);

/// The time that \a text is, such as "500ms", "30s", "5min", "2h" or, in seconds, "30"; refuses everything else.
std::chrono::milliseconds readTime(const char* option, const std::string& text);

/// Whether \a text is "on"; refuses everything but that and "off".
bool readSwitch(const char* option, const std::string& text);

/// What was given with --camera-set, as names and values; refuses what has no "=".
std::vector<std::pair<QString, QString>> readFeatures(const std::vector<std::string>& texts);

/// What was given with --camera: each is the name of a folder, and given once; refuses everything else.
QStringList readCameras(const std::vector<std::string>& texts);

} // namespace Host
