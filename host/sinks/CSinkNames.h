// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QSet>
#include <QString>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

/// The names of the sinks of one graph: each must make a folder of its own.
class CSinkNames
{
public:
    /// Takes the name of \a model in; does nothing with a model that is no sink. Returns what is wrong with the name;
    /// empty on success.
    QString add(Plugin::Halvex::CNodeDataModel* model);

private:
    QSet<QString> m_names;
};

} // namespace Host
