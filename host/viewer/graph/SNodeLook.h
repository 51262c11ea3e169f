// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/NodeKind.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QString>

#include <utility>
#include <vector>

namespace Plugin::Halvex {
class CNodeDataModelRegistry;
}

namespace Host {

/// A port as it is drawn. A plain value.
struct SPortLook
{
    QString caption; ///< Empty if it is not to be shown.
    QString typeId;
    QString typeName;

    friend bool operator==(const SPortLook& left, const SPortLook& right)
    {
        return left.caption == right.caption && left.typeId == right.typeId && left.typeName == right.typeName;
    }
};

/// What a node shows, as far as its model tells it. A plain value.
struct SNodeLook
{
    QString caption;
    QString category;
    ENodeKind kind = ENodeKind::Filter;
    std::vector<SPortLook> inputs;
    std::vector<SPortLook> outputs;
    Plugin::Halvex::ENodeValidationState state = Plugin::Halvex::ENodeValidationState::Valid;
    QString message;
    std::vector<std::pair<QString, QString>>
        figures; ///< Name and value: what became of a decoupler's or worker's data.

    /// Half of the frames take longer to work on than that, in nanoseconds; 0 if the model does not tell.
    qint64 workTime = 0;

    friend bool operator==(const SNodeLook& left, const SNodeLook& right)
    {
        return left.caption == right.caption && left.category == right.category && left.kind == right.kind &&
               left.inputs == right.inputs && left.outputs == right.outputs && left.state == right.state &&
               left.message == right.message && left.figures == right.figures && left.workTime == right.workTime;
    }
};

/// What \a model shows now. Its category is in \a registry, which may be null.
SNodeLook lookOf(Plugin::Halvex::CNodeDataModel& model, const Plugin::Halvex::CNodeDataModelRegistry* registry);

} // namespace Host
