// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeDataModel.h"
#include "graph/CNodeState.h"
#include "platform/CId.h"
#include "platform/ISerializable.h"

#include <Halvex/HalvexExport.h>

#include <QObject>

#include <memory>

namespace Plugin {
namespace Halvex {

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
 * depth first, in no particular order. A walk serves the connections that the port had when it began: one that was
 * destroyed meanwhile is skipped, one that was merely taken out of the port is still served. It ends when its node is
 * removed or destroyed. A node that its scene removes while code stands in it is destroyed when that code has left it.
 * A walk allocates nothing.
 *
 * Feedback loops: data that comes to a node for the 1001st time, while the first delivery to it has not ended, is
 * dropped. So is data for which the thread's stack has no room. The first time, a warning in "halvex.graph" names the
 * model that gets nothing. What was dropped ends every further round of the loop; the first deliveries to each node go
 * on to their other connections.
 *
 * Ownership: a scene owns its nodes; a host may also make some of its own and destroy them at any time. The destructor
 * leaves the connections alone; they find their end cleared.
 *
 * Threads: the thread that made the node. The model's dataUpdated() alone may come from any thread and is queued.
 * Exceptions of models and converters pass through to whoever started the walk.
 */
class HALVEX_EXPORT CNodeBase : public QObject, public AppCore::ISerializable
{
    Q_OBJECT

public:
    /// Takes \a model over; its port counts are read once, here. A null model is replaced by one without ports.
    explicit CNodeBase(std::unique_ptr<CNodeDataModel>&& model);
    ~CNodeBase() override;

    Core::CId id() const;

    /// The model, owned by the node. Never null, but while the node is being destroyed.
    CNodeDataModel* nodeDataModel() const;

    CNodeState& nodeState();
    const CNodeState& nodeState() const;

    /// {"id": text of id(), "model": the model's object}.
    QJsonObject save() const override;

    /// Takes the id from "id" (no id, if it is missing or no id) and hands "model" to the model. Connections are not
    /// touched. For a node that a scene holds already this is the wrong call: the scene keeps it under its old id.
    void restore(const QJsonObject& json) override;

public Q_SLOTS:
    /// Delivers data to the model's input port \a inPortIndex.
    void propagateData(CNodeDataPtr ptrNodeData, NodePortIndex inPortIndex) const;

    /// Reads the model's output \a index and, unless it is null, hands it to every connection of that port. An index
    /// that the model does not have ends in the debug message of CNodeState::connections().
    void onDataUpdated(NodePortIndex index);

private:
    friend class CGraphOwner;
    friend class CNodeConnection;
    friend class CNodeVisit;

    /// How far its removal has come.
    enum class EStage
    {
        Staying,
        Leaving, ///< It was announced.
        Closed,  ///< Its connections are being taken away; it gets no new ones.
        Retired  ///< It is out of the graph, and lives only for the code that stands in it.
    };

    // The walk, in CNodeWalk.cpp. What takes a pointer takes it over from whoever has no more use for it.
    template <typename DataPtr>
    HALVEX_NO_EXPORT void deliver(DataPtr&& data, NodePortIndex inPortIndex, CStackGauge& gauge) const;
    HALVEX_NO_EXPORT void updateAlone(NodePortIndex index);
    HALVEX_NO_EXPORT inline void deliverToPort(NodePortIndex outIndex, CNodeDataPtr&& data, const CNodeVisit& visit);
    [[gnu::cold]] HALVEX_NO_EXPORT void dropData(CStackGauge& gauge, const char* reason) const;

    CNodeConnection*& firstConnection(ENodePortType side);
    void clearEnds();

    Core::CId m_id;
    // The connections that lead here, one list for each side; the node clears their ends when it goes.
    CNodeConnection* m_firstIn = nullptr;
    CNodeConnection* m_firstOut = nullptr;
    EStage m_stage = EStage::Staying;
    mutable bool m_hasWarned = false;
    // What a walk reads is from here to what the table begins with, in a row, for the cache.
    std::unique_ptr<CNodeDataModel> m_model;
    mutable CNodeState m_state; // also counts who stands in the node
};

} // namespace Halvex
} // namespace Plugin
