// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/plugins/SPluginInfo.h"

#include <vector>

namespace Host {

/**
 * The plugins in a folder, by their metadata; no code is loaded.
 *
 * \code
 * const CPluginFolder folder(path, host);
 * for (const SPluginInfo& plugin : folder.plugins())
 *     load(plugin.file);
 * for (const SPluginRefusal& refusal : folder.refusals())
 *     report(refusal.file, refusal.reason);
 * \endcode
 *
 * Every file of the folder is in one of the three lists, under its canonical name and once, however many links lead to
 * it. Of copies of one plugin the first by its name is the plugin. Folders within it are not searched. A second plugin
 * of one name is not required, even if it says so: the first one is there.
 *
 * Left out is what is no plugin for this host, bears a name that is taken, or needs something that is not there, is
 * there in no version that will do, is left out itself or needs it in turn.
 */
class CPluginFolder
{
public:
    /// \a host is what the host itself provides.
    CPluginFolder(const QString& folder, const SPluginInfo& host);

    /// Each behind all that it needs.
    const std::vector<SPluginInfo>& plugins() const { return m_plugins; }

    const std::vector<SPluginRefusal>& refusals() const { return m_refusals; }

    /// Copies of plugins. They do no harm: a copied folder has the library under all names of its links.
    const std::vector<SPluginRefusal>& copies() const { return m_copies; }

private:
    void readAll(const QString& folder, const QString& hostName);
    bool refuseWhatLacksSomething(const SPluginInfo& host);
    void sortByNeed();
    const SPluginInfo* find(const QString& name) const;
    QString missing(const SPluginDependency& dependency, const SPluginInfo& host) const;

    std::vector<SPluginInfo> m_plugins;
    std::vector<SPluginRefusal> m_refusals;
    std::vector<SPluginRefusal> m_copies;
};

} // namespace Host
