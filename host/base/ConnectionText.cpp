// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/ConnectionText.h"

#include <Halvex/graph/SNodeDataType.h>

namespace Host {

using namespace Plugin::Halvex;

QString connectionTypeText(const SNodeDataType& from, const SNodeDataType& to)
{
    if (from.id == to.id || to.id.isEmpty())
        return from.name;
    return from.id.isEmpty() ? to.name : QStringLiteral("%1 to %2").arg(from.name, to.name);
}

QString portText(int port, std::size_t ports, const QString& caption, const SNodeDataType& type)
{
    if (!caption.isEmpty() && caption != type.name)
        return caption;
    return ports > 1 ? QStringLiteral("port %1").arg(port) : QString();
}

} // namespace Host
