// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QJsonObject>
#include <QString>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

/// A new model for programs: its name, category and plugin, "inputs" and "outputs" with the type, its name and the
/// caption of each port, and "settings" as SModelSetting has them.
QJsonObject modelJson(const Plugin::Halvex::CNodeDataModel& model, const QString& name, const QString& category,
                      const QString& plugin);

} // namespace Host
