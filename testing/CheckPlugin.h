// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/testing/SCheckOptions.h>
#include <Halvex/testing/SReport.h>

#include <QString>
#include <QStringList>

namespace Plugin::Halvex::Testing {

/**
 * Tells which rules the plugin in \a file breaks: its metadata, its life from loading to unloading, all of it twice.
 * The models that it registers are not checked here; halvex-check does both.
 *
 * \code
 * const SReport report = checkPlugin(QStringLiteral("plugins/libMyFilters.so"));
 * \endcode
 *
 * \a companions are the files of plugins that it needs, which are loaded and initialized before it. The library's own
 * plugin always is.
 *
 * Of the options, skip and beforeRule count here.
 *
 * Threads: the main thread; a QCoreApplication must be there. Errors: nothing that the plugin throws comes out, and a
 * file that cannot be loaded breaks a rule. A crash takes the process with it; halvex-check loads the plugin in a
 * process of its own.
 */
SReport checkPlugin(const QString& file, const QStringList& companions = {}, const SCheckOptions& options = {});

} // namespace Plugin::Halvex::Testing
