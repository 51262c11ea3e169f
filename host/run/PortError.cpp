// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/PortError.h"

#include <Halvex/graph/CNodeDataModel.h>

namespace Host {

using namespace Plugin::Halvex;

QString portError(const CNodeDataModel& model, ENodePortType type, int port, const QString& place)
{
    if (port >= 0 && unsigned(port) < model.nPorts(type))
        return {};
    const QString side = type == ENodePortType::Out ? QStringLiteral("output") : QStringLiteral("input");
    return QStringLiteral("%1 has no %2 port %3").arg(place, side, QString::number(port));
}

} // namespace Host
