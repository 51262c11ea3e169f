// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/plugins/CPluginFolder.h"

#include "host/base/FlowOrder.h"
#include "host/base/Shown.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace Host {

namespace {

bool haveSameContent(const QString& left, const QString& right)
{
    constexpr qint64 chunk = 1 << 16;
    QFile a(left);
    QFile b(right);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly) || a.size() != b.size())
        return false;
    while (!a.atEnd()) {
        if (a.read(chunk) != b.read(chunk))
            return false;
    }
    return true;
}

} // namespace

CPluginFolder::CPluginFolder(const QString& folder, const SPluginInfo& host)
{
    readAll(folder, host.name);
    // Whatever needs one that was left out lacks something in turn.
    while (refuseWhatLacksSomething(host)) {
    }
    sortByNeed();
}

void CPluginFolder::readAll(const QString& folder, const QString& hostName)
{
    QSet<QString> files;
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    for (const QFileInfo& entry : entries) {
        // A link that leads nowhere has no canonical name.
        const QString file = entry.exists() ? entry.canonicalFilePath() : entry.absoluteFilePath();
        if (files.contains(file))
            continue;
        files.insert(file);

        // The loader would look for a file of the same name with an ending, which is another one.
        if (!entry.isFile()) {
            m_refusals.push_back({file, QStringLiteral("no file")});
            continue;
        }
        QString error;
        SPluginInfo info = SPluginInfo::read(file, &error);
        const SPluginInfo* known = find(info.name);
        if (!error.isEmpty())
            m_refusals.push_back({file, error, info.isRequired});
        else if (info.name == hostName)
            m_refusals.push_back({file, QStringLiteral("%1 is the host itself").arg(shown(info.name))});
        else if (known && haveSameContent(file, known->file))
            m_copies.push_back({file, QStringLiteral("a copy of '%1', which stands for it; leave this file out")
                                          .arg(printable(known->file))});
        else if (known)
            m_refusals.push_back({file, QStringLiteral("a second %1, after '%2'; leave one of them out")
                                            .arg(shown(info.name), printable(known->file))});
        else
            m_plugins.push_back(std::move(info));
    }
}

bool CPluginFolder::refuseWhatLacksSomething(const SPluginInfo& host)
{
    for (auto plugin = m_plugins.begin(); plugin != m_plugins.end(); ++plugin) {
        for (const SPluginDependency& dependency : plugin->dependencies) {
            const QString reason = missing(dependency, host);
            if (reason.isEmpty())
                continue;
            m_refusals.push_back({plugin->file, reason, plugin->isRequired});
            m_plugins.erase(plugin);
            return true;
        }
    }
    return false;
}

QString CPluginFolder::missing(const SPluginDependency& dependency, const SPluginInfo& host) const
{
    const SPluginInfo* provider = dependency.name == host.name ? &host : find(dependency.name);
    const QString wanted = QStringLiteral("it needs %1 %2").arg(shown(dependency.name), dependency.version.toString());
    if (!provider)
        return QStringLiteral("%1, which is not there").arg(wanted);
    if (provider->provides(dependency.version))
        return {};
    return QStringLiteral("%1; there is %2, which stands in for %3 and later")
        .arg(wanted, provider->version.toString(), provider->compatVersion.toString());
}

void CPluginFolder::sortByNeed()
{
    FlowEdges edges;
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        for (const SPluginDependency& dependency : m_plugins[i].dependencies) {
            if (const SPluginInfo* provider = find(dependency.name))
                edges.emplace_back(int(provider - m_plugins.data()), int(i));
        }
    }
    std::vector<SPluginInfo> sorted;
    std::vector<bool> isSorted(m_plugins.size(), false);
    for (const int i : flowOrder(int(m_plugins.size()), edges)) {
        sorted.push_back(m_plugins[std::size_t(i)]);
        isSorted[std::size_t(i)] = true;
    }
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        if (!isSorted[i])
            m_refusals.push_back(
                {m_plugins[i].file, QStringLiteral("what it needs leads round in a circle"), m_plugins[i].isRequired});
    }
    m_plugins = std::move(sorted);
}

const SPluginInfo* CPluginFolder::find(const QString& name) const
{
    const auto found = std::find_if(m_plugins.begin(), m_plugins.end(),
                                    [&name](const SPluginInfo& plugin) { return plugin.name == name; });
    return found == m_plugins.end() ? nullptr : &*found;
}

} // namespace Host
