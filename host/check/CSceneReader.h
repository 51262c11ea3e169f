// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/CNodeReader.h"

#include <Halvex/platform/CId.h>

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

#include <unordered_map>

namespace Host {

class IHostModels;

/// Reads a scene, docs/scene-document.md, into a graph, and finds what is wrong with its ids and cameras. What is not
/// as the schema has it was told before, and is passed over.
class CSceneReader
{
    Q_DECLARE_TR_FUNCTIONS(Host::CSceneReader)

public:
    /// \a camera: what stands for the camera of the run, which \a models make. All references outlive this object.
    CSceneReader(CGraphCheck& graph, CNodeReader& nodes, CFaultList& faults, CWordFinder& words,
                 const IHostModels& models, SGraphNode camera);

    void read(const SJsonNode& root);

private:
    void addNode(const SJsonNode& json);
    void readModel(const SJsonNode& json, SGraphNode& node);
    void readCamera(const SJsonNode& json, SGraphNode& node);
    void checkCamera(const SJsonNode& json);
    void addId(const SJsonNode& json, int number);
    void addConnection(const SJsonNode& json);
    int findEnd(const SJsonNode& connection, QLatin1String key);
    QString closestId(const QString& id);

    CGraphCheck& m_graph;
    CNodeReader& m_nodes;
    CFaultList& m_faults;
    CWordFinder& m_words;
    const IHostModels& m_models;
    const QString m_cameraModel; // its name
    const SGraphNode m_camera;
    std::unordered_map<Core::CId, int> m_numbers; // of nodes
    std::unordered_map<Core::CId, int> m_begins;  // where the ids stand
    QHash<QString, int> m_badIds;                 // numbers of nodes, by what stands there in place of an id
    QStringList m_ids;                            // as they are written
    const SJsonNode* m_cameraJson = nullptr;
};

} // namespace Host
