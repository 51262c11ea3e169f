// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/RunSettings.h"

#include "host/base/Shown.h"
#include "host/run/CCameraStream.h"
#include "host/run/CStreamGraph.h"
#include "host/run/Output.h"

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

void obey(const std::vector<std::unique_ptr<CCameraStream>>& streams, const QString& line)
{
    const QString set = QStringLiteral("set ");
    const SNodeSetting setting = SNodeSetting::read(line.mid(set.size()));
    if (!line.startsWith(set) || setting.key.isEmpty())
        return printErrorLine(
            QStringLiteral("'set NODE.key=value' is all that can be said now, not %1").arg(shown(line)));
    for (const auto& stream : streams) {
        const QString error = stream->graph().isIntact() ? stream->graph().set(setting) : QString();
        if (!error.isEmpty())
            return printErrorLine(QStringLiteral("set %1: %2").arg(printable(setting.text()), error));
    }
}

} // namespace Host
