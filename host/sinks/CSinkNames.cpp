// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sinks/CSinkNames.h"

#include "host/base/FolderName.h"
#include "host/base/Shown.h"
#include "host/sinks/IFrameSink.h"

#include <Halvex/graph/CNodeDataModel.h>

namespace Host {

QString CSinkNames::add(Plugin::Halvex::CNodeDataModel* model)
{
    const auto* sink = qobject_cast<IFrameSink*>(model);
    if (!sink)
        return {};
    const QString name = sink->sinkName();
    if (!makesASinkFolder(name))
        return QStringLiteral("the sink's name %1 makes no folder").arg(shown(name));
    if (m_names.contains(name))
        return QStringLiteral("a second sink %1").arg(shown(name));
    m_names.insert(name);
    return {};
}

} // namespace Host
