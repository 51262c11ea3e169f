// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeData.h>
#include <Halvex/graph/CNodeState.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/platform/CId.h>
#include <Halvex/platform/ISerializable.h>

#include <QJsonObject>
#include <QObject>
#include <QVarLengthArray>

#include <memory>

namespace Plugin::Halvex {

class CConversion;
class CStackGauge;

/**
 * Joins an output port of one node to an input port of another and carries data along, through a converter if it has
 * one. With one end it is a half connection: the host is still choosing the other.
 *
 * \code
 * const auto connection = scene.createConnection(blurNode, 0, cameraNode, 0, grabResultToImage);
 * if (!connection)
 *     qWarning("one of the nodes has no such port");
 * \endcode
 *
 * Ownership: a scene shares the connections it made with whoever holds the `std::shared_ptr`. Nodes are not owned.
 * A connection may outlive either node; it is then as if that end had been cleared: nothing is delivered there, save()
 * is empty, getNode() is null and getPortIndex() -1.
 *
 * Port types: each operation says what it does with a port type that is neither In nor Out, such as None.
 *
 * End of life: the destructor takes the connection out of the port tables of its ends and delivers empty data to the
 * input once. What the model or the converter throws at that moment is reported to "halvex.graph" and swallowed.
 *
 * Threads: the graph's thread, the one that made the connection.
 */
class HALVEX_EXPORT CNodeConnection : public QObject, public AppCore::ISerializable
{
    Q_OBJECT

public:
    /// A complete connection; the in end comes first. It enters nothing into the nodes' tables: the scene does.
    CNodeConnection(CNodeBase& inNode, NodePortIndex inIndex, CNodeBase& outNode, NodePortIndex outIndex,
                    NodeDataConverter converter);

    /// A half connection, with the one end as setNodeToPort() sets it.
    CNodeConnection(ENodePortType portType, CNodeBase& node, NodePortIndex index);
    ~CNodeConnection() override;

    /// Made at construction, never changed, not saved.
    Core::CId id() const;

    /// The in node for In, the out node for Out, null for anything else; null if the node is gone.
    CNodeBase* getNode(ENodePortType portType) const;

    /// The pointer to the in node for In, to the out node for anything else. It may be overwritten: the index stays,
    /// and nothing is emitted. setNodeToPort() is the better way: a node that is written here must exist for as long as
    /// the connection leads to it.
    CNodeBase*& getNode(ENodePortType portType);

    /// The in index for In, the out index for Out, -1 for anything else and for an end that was never set, was cleared
    /// or lost its node.
    NodePortIndex getPortIndex(ENodePortType portType) const;

    /// The type of the data at one end, as the model there tells it. With both ends set, In asks the in node; anything
    /// else asks the out node, and passes \a portType on. With one end set, that end is asked, whatever \a portType is.
    /// With none the type is empty.
    SNodeDataType dataType(ENodePortType portType) const;

    /// Sets one end. The node becomes the in node for In, and the out node for anything else. The index becomes the out
    /// index for Out, and the in index for anything else. So for None the node is in the out end and the index in the
    /// in end; hosts rely on that. Emits updated(). Port tables are left as they are.
    void setNodeToPort(CNodeBase& node, ENodePortType portType, NodePortIndex index);

    /// Clears the in end for In, else the out end. Emits nothing.
    void clearNode(ENodePortType portType);

    /// Replaces the converter. With an empty one, data passes as it is. Emits nothing.
    void setTypeConverter(NodeDataConverter converter);

    /// Converts \a data, also when it is null, and hands it to the in node. Without an in node it does nothing.
    /// Exceptions of converter and model pass through.
    void propagateData(CNodeDataPtr data) const;

    /// The same with empty data (null).
    void propagateEmptyData() const;

    /// Takes this connection out of the port tables of its ends. The ends stay set.
    void removeFromNodes() const;

    /// {"in_id", "in_index", "out_id", "out_index"}, and "converter" if there is one: {"in", "out"}, the types that it
    /// works between. Empty unless both ends are set.
    QJsonObject save() const override;

Q_SIGNALS:
    /// setNodeToPort() has set an end. The constructors emit it too, twice for a complete connection and once for a
    /// half one; nobody can be connected by then.
    void updated(CNodeConnection& conn);

protected:
    /// {"id", "name"} of dataType(portType).
    QJsonObject getTypeJson(ENodePortType portType) const;

private:
    friend class CConversion;
    friend class CGraphInspector;
    friend class CNodeBase;
    friend class CNodeScene;
    friend class CNodeState;
    using SEnd = CNodeBase::SEnd;

    /// What is going on with it.
    enum class EStage
    {
        Staying,
        Leaving, ///< Its deletion was announced.
        Ending   ///< In its destructor.
    };

    // The walk, in CNodeWalk.cpp. They take the pointer over from whoever has no more use for it.
    template <typename DataPtr>
    HALVEX_NO_EXPORT void deliver(DataPtr&& data, CStackGauge& gauge) const;
    HALVEX_NO_EXPORT inline void deliverConverted(CNodeDataPtr&& data, CStackGauge& gauge) const;
    [[gnu::noinline]] HALVEX_NO_EXPORT void deliverConverted(const CNodeDataPtr& data, CStackGauge& gauge) const;

    const SEnd& end(ENodePortType portType) const { return portType == ENodePortType::In ? m_in : m_out; }
    SEnd& end(ENodePortType portType) { return portType == ENodePortType::In ? m_in : m_out; }
    void leaveTables();
    const CNodeState::SEntry* findEntry(const CNodeState& state, ENodePortType side, NodePortIndex port) const;

    Core::CId m_id;
    SEnd m_out;
    // Survives number off by one: room for one more changes nothing.
    QVarLengthArray<CNodeState::SEntry, 2> m_entries; // the tables that it is in
    mutable CConversion* m_conversion = nullptr;      // the innermost call of the converter
    EStage m_stage = EStage::Staying;
    // What a walk reads is this and what the in end begins with: 32 bytes in a row, for the cache.
    std::shared_ptr<const NodeDataConverter> m_converter; // null for none
    SEnd m_in;
};

} // namespace Plugin::Halvex
