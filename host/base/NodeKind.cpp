// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/base/NodeKind.h"

#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/models/CNodeDecouplerDataModelBase.h>

namespace Host {

using namespace Plugin::Halvex;

ENodeKind kindOf(const CNodeDataModel& model)
{
    if (qobject_cast<const CNodeDecouplerDataModelBase*>(&model))
        return ENodeKind::Decoupler;
    if (model.nPorts(ENodePortType::In) == 0)
        return ENodeKind::Source;
    return model.nPorts(ENodePortType::Out) == 0 ? ENodeKind::Sink : ENodeKind::Filter;
}

QString kindName(ENodeKind kind)
{
    switch (kind) {
    case ENodeKind::Source:
        return QStringLiteral("source");
    case ENodeKind::Decoupler:
        return QStringLiteral("decoupler");
    case ENodeKind::Sink:
        return QStringLiteral("sink");
    case ENodeKind::Filter:
        break;
    }
    return QStringLiteral("filter");
}

ENodeKind kindNamed(const QString& name)
{
    for (const ENodeKind kind : {ENodeKind::Source, ENodeKind::Decoupler, ENodeKind::Sink}) {
        if (kindName(kind) == name)
            return kind;
    }
    return ENodeKind::Filter;
}

} // namespace Host
