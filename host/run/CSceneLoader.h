// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/run/FlowOrder.h"
#include "platform/CId.h"

#include <QJsonValue>
#include <QSet>
#include <QString>

#include <unordered_map>
#include <vector>

class QJsonObject;

namespace Plugin {
namespace Halvex {
class CNodeBase;
class CNodeDataModel;
class CNodeScene;
} // namespace Halvex
} // namespace Plugin

namespace Host {

class CPngSinkModel;

/**
 * Builds a scene of a document, and refuses what a run could not account for.
 *
 * A scene by itself leaves out what it cannot make; a run of what is left would look sound and lack a branch. So
 * everything must be as it says: registered models, one camera, sinks with names that make different folders,
 * connections between ports that exist and whose types agree or are converted, no loops.
 *
 * Threads: the scene's.
 */
class CSceneLoader
{
public:
    /// \a scene has a registry and no nodes, and outlives this object.
    explicit CSceneLoader(Plugin::Halvex::CNodeScene& scene);

    /// Once per object. Returns the first thing that is wrong, place first: "nodes[3]: ..."; empty on success. The
    /// scene is of no use after a failure.
    QString load(const QJsonObject& document);

private:
    QString addNode(int index, const QJsonValue& json);
    QString checkModel(int index, Plugin::Halvex::CNodeDataModel* model);
    QString checkSink(const CPngSinkModel& sink);
    QString addConnection(const QJsonValue& json);
    QString checkTypes(const Plugin::Halvex::CNodeBase& out, int outIndex, const Plugin::Halvex::CNodeBase& in,
                       int inIndex, const QJsonValue& converter) const;

    Plugin::Halvex::CNodeScene& m_scene;
    std::unordered_map<Core::CId, int> m_numbers; // of the nodes, by id
    std::vector<Plugin::Halvex::CNodeBase*> m_nodes;
    FlowEdges m_edges;
    QSet<QString> m_sinkNames;
    int m_camera = -1;
};

} // namespace Host
