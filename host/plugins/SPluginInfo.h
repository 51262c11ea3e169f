// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>
#include <QVersionNumber>

#include <vector>

namespace Host {

/// What a plugin needs: something of that name which can stand in for that version.
struct SPluginDependency
{
    QString name;
    QVersionNumber version;
};

/// What a plugin, or the host itself, says of itself. A plain value.
struct SPluginInfo
{
    QString file; ///< Canonical; empty for the host.
    QString name;
    QVersionNumber version;
    QVersionNumber compatVersion; ///< The oldest version that it can stand in for.
    bool isRequired = false;      ///< The host is not to run without it.
    std::vector<SPluginDependency> dependencies;

    /// Reads the metadata of the plugin in \a file and loads no code. What is wrong first goes to \a error, in one
    /// line; isRequired holds even then, unless the file is no plugin for this host at all.
    static SPluginInfo read(const QString& file, QString* error);

    /// Whether it can stand in for \a wanted.
    bool provides(const QVersionNumber& wanted) const;
};

/// A file that is left out, and why.
struct SPluginRefusal
{
    QString file;
    QString reason;          ///< In one line.
    bool isRequired = false; ///< The host is not to run without it.
};

} // namespace Host
