// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunSettings.h"

#include "host/base/Shown.h"
#include "host/run/CStreamGraph.h"

namespace Host {

QString applySettings(CStreamGraph& graph, const std::vector<SNodeSetting>& settings)
{
    for (const SNodeSetting& setting : settings) {
        const QString error = graph.set(setting);
        if (!error.isEmpty())
            return QStringLiteral("--set %1: %2").arg(printable(setting.text()), error);
    }
    return {};
}

QString obey(CStreamGraph& graph, const QString& line)
{
    const QString set = QStringLiteral("set ");
    const SNodeSetting setting = SNodeSetting::read(line.mid(set.size()));
    if (!line.startsWith(set) || setting.key.isEmpty())
        return QStringLiteral("'set NODE.key=value' is all that can be said now, not %1").arg(shown(line));
    const QString error = graph.set(setting);
    return error.isEmpty() ? error : QStringLiteral("set %1: %2").arg(printable(setting.text()), error);
}

} // namespace Host
