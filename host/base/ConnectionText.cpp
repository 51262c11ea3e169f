// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ConnectionText.h"

#include <Halvex/graph/SNodeDataType.h>

#include <QCoreApplication>

namespace Host {

using namespace Plugin::Halvex;

QString connectionTypeText(const SNodeDataType& from, const SNodeDataType& to)
{
    if (from.id == to.id || to.id.isEmpty())
        return from.name;
    if (from.id.isEmpty())
        return to.name;
    return QCoreApplication::translate("Host::ConnectionText", "%1 to %2", "types of data").arg(from.name, to.name);
}

QString portText(int port, std::size_t ports, const QString& caption, const SNodeDataType& type)
{
    if (!caption.isEmpty() && caption != type.name)
        return caption;
    return ports > 1 ? QStringLiteral("port %1").arg(port) : QString();
}

} // namespace Host
