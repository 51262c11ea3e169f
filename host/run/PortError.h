// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/graph/ENodePortType.h>

#include <QString>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

/// What is wrong with \a port of \a model, which a message calls \a place: that it has none of that number; empty when
/// it has.
QString portError(const Plugin::Halvex::CNodeDataModel& model, Plugin::Halvex::ENodePortType type, int port,
                  const QString& place);

} // namespace Host
