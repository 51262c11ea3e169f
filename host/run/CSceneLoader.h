// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"
#include "host/sinks/CSinkNames.h"

#include <Halvex/platform/CId.h>

#include <QJsonValue>
#include <QString>

#include <unordered_map>
#include <vector>

class QJsonObject;

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
} // namespace Plugin::Halvex

namespace Host {

/**
 * Puts a document into the scene of a camera, and refuses what a run could not account for.
 *
 * The camera's node is in the scene already. The node in the document that has the same model, whichever camera it was
 * made for, stands for it: connections to that one lead to the camera's.
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
    /// \a scene has a registry and one node, \a camera, and outlives this object.
    CSceneLoader(Plugin::Halvex::CNodeScene& scene, Plugin::Halvex::CNodeBase& camera);

    /// Once per object. Returns the first thing that is wrong, place first: "nodes[3]: ..."; empty on success. The
    /// scene is of no use after a failure.
    QString load(const QJsonObject& document);

private:
    QString addNode(int index, const QJsonValue& json);
    QString addCamera(int index);
    QString makeNode(const QJsonObject& json);
    QString addConnection(const QJsonValue& json);
    QString checkTypes(const Plugin::Halvex::CNodeBase& out, int outIndex, const Plugin::Halvex::CNodeBase& in,
                       int inIndex, const QJsonValue& converter) const;

    Plugin::Halvex::CNodeScene& m_scene;
    std::unordered_map<Core::CId, int> m_numbers; // of the nodes, by id
    std::vector<Plugin::Halvex::CNodeBase*> m_nodes;
    FlowEdges m_edges;
    CSinkNames m_sinkNames;
    Plugin::Halvex::CNodeBase& m_camera;
    int m_cameraNumber = -1;
};

} // namespace Host
