// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

/// What a node is for, by its ports.
enum class ENodeKind
{
    Filter,
    Source, ///< Has no inputs; in documents, a camera.
    Decoupler,
    Sink ///< Has no outputs.
};

ENodeKind kindOf(const Plugin::Halvex::CNodeDataModel& model);

/// "filter", "source", "decoupler" or "sink". Frozen: reports have it.
QString kindName(ENodeKind kind);

/// The kind of that name; a filter if there is none.
ENodeKind kindNamed(const QString& name);

} // namespace Host
