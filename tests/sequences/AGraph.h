// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/SOperation.h"

#include <Halvex/graph/ENodePortType.h>

#include <utility>

namespace Sequences {

using Plugin::Halvex::ENodePortType;

/**
 * The operations of a host. Scenes, nodes and connections go by numbers, of which each operation that makes something
 * is given the first: it is the source's and its scene's, and what a document brings counts on from there.
 *
 * Results are numbers of what was made or found, or whether something was done; `nothingThere` if an object that the
 * operation needs is gone, and `thrown` if it threw.
 */
class AGraph
{
public:
    static constexpr int nothingThere = -2;
    static constexpr int thrown = -1;
    static constexpr int infos = 4; // 0 is none

    virtual ~AGraph() = default;

    virtual int run(const SOperation& operation) = 0;

    // The service.
    int addSource(int number, int info) { return run({EOperation::AddSource, number, {info}, {}}); }
    int addModel(int number, EKind kind) { return run({EOperation::AddModel, number, {kind}, {}}); }
    int addUniqueSink(int number) { return run({EOperation::AddUniqueSink, number, {}, {}}); }
    int addAgain(int node) { return run({EOperation::AddAgain, 0, {node}, {}}); }
    int removeNode(int node, bool removeLoneNodeScene)
    {
        return run({EOperation::RemoveNode, 0, {node, removeLoneNodeScene}, {}});
    }
    int removeNodeByModel(int node, bool removeLoneNodeScene)
    {
        return run({EOperation::RemoveNodeByModel, 0, {node, removeLoneNodeScene}, {}});
    }
    int removeSceneOfNode(int node, bool byId) { return run({EOperation::RemoveSceneOfNode, 0, {node, byId}, {}}); }
    int connectModels(int number, int in, int inPort, int out, int outPort)
    {
        return run({EOperation::ConnectModels, number, {in, inPort, out, outPort}, {}});
    }
    int importDocument(int number, Document document)
    {
        return run({EOperation::ImportDocument, number, {}, std::move(document)});
    }
    int importStoredDocuments(int number) { return run({EOperation::ImportStoredDocuments, number, {}, {}}); }
    int addStoredDocument(Document document)
    {
        return run({EOperation::AddStoredDocument, 0, {}, std::move(document)});
    }
    int setActiveScene(int scene) { return run({EOperation::SetActiveScene, 0, {scene}, {}}); } // 0 for none

    // Its scenes.
    int createNode(int number, int scene, EKind kind)
    {
        return run({EOperation::CreateNode, number, {scene, kind}, {}});
    }
    int createConnection(int number, int scene, int in, int inPort, int out, int outPort, bool isConverting)
    {
        return run({EOperation::CreateConnection, number, {scene, in, inPort, out, outPort, isConverting}, {}});
    }
    int createHalfConnection(int number, int scene, ENodePortType side, int node, int port)
    {
        return run({EOperation::CreateHalfConnection, number, {scene, int(side), node, port}, {}});
    }
    int deleteConnection(int connection) { return run({EOperation::DeleteConnection, 0, {connection}, {}}); }
    int deleteConnectionNow(int connection) { return run({EOperation::DeleteConnectionNow, 0, {connection}, {}}); }
    int removeFromScene(int node) { return run({EOperation::RemoveFromScene, 0, {node}, {}}); }
    int clearScene(int scene) { return run({EOperation::ClearScene, 0, {scene}, {}}); }
    int saveToMemory(int scene) { return run({EOperation::SaveToMemory, 0, {scene}, {}}); } // one document is kept
    int loadFromMemory(int number, int scene) { return run({EOperation::LoadFromMemory, number, {scene}, {}}); }
    int restoreNode(int number, int scene, int index) // in the document that is kept
    {
        return run({EOperation::RestoreNode, number, {scene, index}, {}});
    }
    int restoreConnection(int number, int scene, int index)
    {
        return run({EOperation::RestoreConnection, number, {scene, index}, {}});
    }
    int iterate(int scene) { return run({EOperation::Iterate, 0, {scene}, {}}); }
    int destroyScene(int scene) { return run({EOperation::DestroyScene, 0, {scene}, {}}); }

    /// Feeds the proxy of a source.
    int setData(int number, int source, bool isEmpty)
    {
        return run({EOperation::SetData, number, {source, isEmpty}, {}});
    }
};

} // namespace Sequences
