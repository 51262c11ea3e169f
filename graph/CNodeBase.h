// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/CNodeState.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/platform/CId.h>
#include <Halvex/platform/ISerializable.h>

#include <QJsonObject>
#include <QObject>

#include <memory>

namespace Plugin::Halvex {

class CNodeConnection;
class CNodeScene;
class CNodeVisit;
class CStackGauge;

/**
 * One node of a graph: owns a model, knows what is connected to its ports, and moves the model's data.
 *
 * \code
 * CNodeBase& node = scene.createNode(std::make_unique<CNegateModel>());
 * node.propagateData(QSharedPointer<CNumberData>::create(3), 0); // as a connection would deliver it
 * \endcode
 *
 * Walks: when the model announces new output, the node hands it to every connection of that port, synchronously and
 * depth first, in no particular order. This is a walk. It serves the connections that the port had when it began: one
 * that was destroyed meanwhile is skipped, one that was only taken out of the port is still served. It ends when its
 * node is removed or destroyed. A walk allocates nothing.
 *
 * Removal: a scene may remove a node while the node's own code runs, in its model for example. The node is then
 * destroyed when that code has returned.
 *
 * Feedback loops: a loop is cut when data comes to a node for the 1001st time while the first delivery to it has not
 * ended. That data is dropped, and the loop is over: its rounds end one after the other and go nowhere else. Nodes
 * outside the loop still get the data of the first delivery to each node of the loop.
 *
 * Data is also dropped at a node when the thread's stack has no room for what comes behind it. When a node drops data
 * for the first time, a warning in "halvex.graph" names its model.
 *
 * Ownership: a scene owns its nodes; a host may also make some of its own and destroy them at any time. The destructor
 * leaves the connections alone; they find their end cleared.
 *
 * Threads: the thread that made the node. The model's dataUpdated() alone may come from any thread and is queued.
 * A library that was built with assertions warns once when propagateData() is called in another thread.
 * Exceptions of models and converters pass through to whoever started the walk.
 */
class HALVEX_EXPORT CNodeBase : public QObject, public AppCore::ISerializable
{
    Q_OBJECT

public:
    /// Takes \a model over; its port counts are read once, here. A null model is replaced by one without ports.
    explicit CNodeBase(std::unique_ptr<CNodeDataModel>&& model);
    ~CNodeBase() override;

    /// Made at construction; restore() replaces it.
    Core::CId id() const;

    /// The model, owned by the node. Null only while the node is being destroyed.
    CNodeDataModel* nodeDataModel() const;

    /// What is connected to its ports.
    CNodeState& nodeState();
    /// The same for reading.
    const CNodeState& nodeState() const;

    /// {"id": text of id(), "model": the model's object}.
    QJsonObject save() const override;

    /// Takes the id from "id" and hands the object under "model" to the model. A text that is no id, or none at all,
    /// gives the node no id. Connections are not touched. Do not call it for a node of a scene: the scene goes on
    /// holding it under its old id.
    void restore(const QJsonObject& json) override;

public Q_SLOTS:
    /// Delivers data to the model's input port \a inPortIndex.
    void propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const;

    /// Reads the model's output \a index and hands it to every connection of that port. Empty data (null) goes
    /// nowhere. If the model gives data for a port that it does not have, a debug message says which port, and the data
    /// goes nowhere.
    void onDataUpdated(NodePortIndex index);

private:
    friend class CGraphInspector;
    friend class CNodeConnection;
    friend class CNodeScene;
    friend class CNodeVisit;

    /// An end of a connection. It is in a list of the node that it leads to, which clears it when it goes,
    /// unless a host has written another node into it.
    struct SEnd
    {
        CNodeBase* node = nullptr;
        NodePortIndex index = -1;
        SEnd* next = nullptr;
        SEnd** link = nullptr; ///< What points at this end in that list; null if it is in none.

        HALVEX_NO_EXPORT void leadTo(CNodeBase& to);
        HALVEX_NO_EXPORT void unlink();
        HALVEX_NO_EXPORT void clear();
    };

    /// How far its removal has come.
    enum class EStage
    {
        Staying,
        Leaving, ///< It was announced.
        Closed   ///< Its connections are being taken away; it gets no new ones.
    };

    // The walk, in CNodeWalk.cpp. What takes a pointer takes it over from whoever has no more use for it.
    template <typename DataPtr>
    HALVEX_NO_EXPORT void deliver(DataPtr&& data, NodePortIndex inPortIndex, CStackGauge& gauge) const;
    HALVEX_NO_EXPORT inline void walk(NodePortIndex index, CNodeVisit& visit);
    HALVEX_NO_EXPORT void walkIfRoom(NodePortIndex index, CNodeVisit& visit);
    [[gnu::noinline]] HALVEX_NO_EXPORT void updateCarefully(NodePortIndex index, CNodeVisit* visit);
    HALVEX_NO_EXPORT void updateAlone(NodePortIndex index);
    HALVEX_NO_EXPORT inline void deliverToPort(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit);
    [[gnu::cold]] HALVEX_NO_EXPORT void dropData(CStackGauge& gauge, const char* reason) const;
    [[gnu::cold]] HALVEX_NO_EXPORT void warnOfMissingPort(NodePortIndex outIndex) const;

    void clearEnds();
    // Takes a node out of the graph: every end that leads to it is cleared, and it is destroyed, at once or when the
    // last visit has left it.
    static void retire(std::unique_ptr<CNodeBase> node);

    // What a walk reads comes first and lies in a row with what the table begins with, for the cache.
    std::unique_ptr<CNodeDataModel> m_model;
    mutable CNodeState m_state; // also counts who stands in the node
    Core::CId m_id;
    SEnd* m_firstEnd = nullptr;          // of those that lead here
    const CNodeScene* m_owner = nullptr; // the scene that holds it; null before it is added and after it was taken out
    EStage m_stage = EStage::Staying;
    mutable bool m_hasWarned = false;
};

} // namespace Plugin::Halvex
