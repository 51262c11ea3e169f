// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/CNodeBase.h"
#include "graph/CNodeConnection.h"
#include "platform/CId.h"
#include "platform/IBaseInfo.h"
#include "scene/CNodeDataModelRegistry.h"

#include <Halvex/HalvexExport.h>

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>
#include <unordered_map>

namespace Plugin {
namespace Halvex {

class CDeferredQueue;

/**
 * One dataflow graph: owns its nodes, shares its connections, announces every change of structure.
 *
 * \code
 * CNodeScene scene(registry, info, nullptr);
 * CNodeBase& camera = scene.createNode(registry->create(QStringLiteral("Camera")));
 * CNodeBase& writer = scene.createNode(registry->create(QStringLiteral("PngWriter")));
 * const auto toImage = registry->getTypeConverter(CGrabResultData().type(), CImageData().type());
 * if (!scene.createConnection(writer, 0, camera, 0, toImage)) // the consumer comes first
 *     qWarning("a port is missing");
 * \endcode
 *
 * Ownership: nodes belong to the scene alone, connections to the scene and whoever keeps the `std::shared_ptr`. The
 * registry and the information object are shared.
 *
 * Signals come before the object they speak of is taken apart and after it was put together. Handlers may call any
 * operation, the scene's destruction included. What they ask of deleteConnection() is done when the outermost
 * operation has told everybody, first come, first served; deleteConnectionNow() is immediate. removeNode() in a
 * handler takes the node out of nodes() at once, while its connections, and then the node, go when that queue runs.
 *
 * Exceptions of handlers, models and converters pass through, from the outermost operation when what was put off
 * is done: of several the first; the others go to "halvex.graph". The scene stays usable. What was created stays when a
 * handler throws on hearing of it; what was to be deleted or removed stays too and can be removed again, but for
 * deletions that were put off, which are done. A connection whose first data makes a model throw is not created. The
 * destructor throws nothing: it reports to "halvex.graph" and goes on.
 *
 * Threads: one, the one that the scene lives in. Nothing is locked.
 */
class HALVEX_EXPORT CNodeScene : public QObject
{
    Q_OBJECT

public:
    /// A scene without a registry: nothing can be made by name until setRegistry(). A \a parent owns the scene.
    CNodeScene(Core::AppCoreComponents::BaseInfoPtr info, QObject* parent);
    CNodeScene(std::shared_ptr<CNodeDataModelRegistry> registry, Core::AppCoreComponents::BaseInfoPtr info,
               QObject* parent);

    /// Removes every node as clearScene() does, with all signals, then releases info and registry.
    ~CNodeScene() override;

    /// Makes a node that owns \a model, after handing the model the scene's info. A node that has the same id already
    /// is replaced and goes without signals; its connections find their end cleared. Emits nodeCreated() once.
    /// Returns the node, or noNode() when a handler has removed it, or destroyed the scene, meanwhile.
    CNodeBase& createNode(std::unique_ptr<CNodeDataModel>&& model);

    /// What is returned in place of a node that does not exist: it has no ports and no id, and belongs to no scene.
    /// There is one in the process: leave it as it is. Compare addresses: `&scene.createNode(...) ==
    /// &CNodeScene::noNode()`.
    static CNodeBase& noNode();

    /// Connects \a nodeOut's output port to \a nodeIn's input port; note that the in end comes first. The current
    /// output of that port, if there is any, goes along every connection of the port before the new one is in
    /// connections() and announced. Emits connectionCreated() once.
    /// Returns null, and nothing is created, if a node has no such port, is being removed, or is removed, by what
    /// receives the data, before the connection is complete. The nodes may lie in different scenes. The connection is
    /// this scene's: removing a node in another scene announces no deletion, and leaves the connection without that
    /// end.
    std::shared_ptr<CNodeConnection> createConnection(CNodeBase& nodeIn, int portIndexIn, CNodeBase& nodeOut,
                                                      int portIndexOut, const NodeDataConverter& converter);

    /// A connection with one end, while the host is choosing the other. It is in connections() but in no node's port
    /// table, and carries nothing. Emits connectionCreated() once. Null if the node has no such port.
    std::shared_ptr<CNodeConnection> createConnection(ENodePortType portType, CNodeBase& node, int portIndex);

    /// Deletes \a connection: at once, or, in a handler of this scene's signals, when the outermost operation ends.
    /// One that is not in connections() is left alone, and asking twice deletes once.
    void deleteConnection(CNodeConnection& connection);

    /// Deletes \a connection at once: emits connectionDeleted() while it is still whole, takes it out of its nodes'
    /// port tables and of connections(). It is destroyed unless somebody shares it.
    void deleteConnectionNow(CNodeConnection& connection);

    /// Emits nodeDeleted() while the node is still whole, deletes its connections (input ports first), then the node
    /// and its model. One that is not in nodes() is left alone, and asking twice removes once.
    void removeNode(CNodeBase& node);

    /// Removes every node that the scene has now. Half connections stay.
    void clearScene();

    /// The scene's document: every node, and every connection that has both ends, in the tables' order, as indented
    /// JSON in UTF-8. What the objects contain is what their own save() writes.
    QByteArray saveToMemory() const;

    /// Adds what the document \a data holds; clear the scene first to replace what it has. All nodes come before any
    /// connection, each in the document's order. Text that is no JSON object, and values of wrong types, count as
    /// missing; nothing is reported. Connections to nodes or ports that are not there are left out.
    /// A node whose model is not registered throws `std::logic_error`: "No registered model with name " and the name.
    /// What was restored before stays, nothing after it is.
    void loadFromMemory(const QByteArray& data);

    /// Makes a node from a node object: its id and, through restore(), its model's settings. It replaces a node of the
    /// same id as createNode() does, and nodeCreated() is emitted once. With "is_unique": true in the model nothing is
    /// made: the first node whose model has that name is returned as it is, or noNode() when there is none.
    /// Throws as loadFromMemory() does; the scene is then as it was.
    CNodeBase& restoreNode(const QJsonObject& nodeJson);

    /// Makes a connection from a connection object, as createConnection() does, with the converter that the registry
    /// has for the types it names. Null, and nothing is made, if a node or a port is not there.
    std::shared_ptr<CNodeConnection> restoreConnection(const QJsonObject& connectionJson);

    /// Calls \a visitor once for each node that the scene has now and still has at its turn, in the order of nodes().
    void iterateOverNodes(const std::function<void(CNodeBase*)>& visitor);

    /// The same with the nodes' models.
    void iterateOverNodeData(const std::function<void(CNodeDataModel*)>& visitor);

    /// The tables themselves: they change with the scene, so iterate a copy of the keys where a loop changes it.
    const std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>& nodes() const;
    const std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>>& connections() const;

    /// The registry. There must be one, see isRegistyValid().
    CNodeDataModelRegistry& registry() const;

    /// Replaces the registry; existing nodes keep their models.
    void setRegistry(std::shared_ptr<CNodeDataModelRegistry> registry);

    /// Whether there is a registry. The spelling is what hosts call.
    bool isRegistyValid() const;

    Core::AppCoreComponents::BaseInfoPtr getSceneInfo() const;

    /// True in handlers and models that the destructor calls: the scene must not be destroyed once more.
    bool isBeingDestroyed() const;

Q_SIGNALS:
    void nodeCreated(CNodeBase& node);
    /// The node is about to be removed; it and its connections are still whole.
    void nodeDeleted(CNodeBase& node);
    void connectionCreated(CNodeConnection& connection);
    /// The connection is about to be deleted; it is still whole.
    void connectionDeleted(CNodeConnection& connection);

private:
    friend class CSceneInspector;
    friend class CSceneLoader;
    using Nodes = std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>;

    enum class EStage
    {
        Open,
        Closing, ///< In the destructor.
        Closed   ///< In the destructor, with all signals sent: nothing comes in any more.
    };

    // What becomes of a connection when a handler throws on hearing of its deletion. One that was put off goes: whoever
    // asked for it cannot ask again.
    enum class EIfThrown
    {
        Stays,
        Goes
    };

    // loadFromMemory() of a document that needs no reading.
    void load(const QJsonObject& root);

    CNodeBase& addNode(std::unique_ptr<CNodeBase> node);
    CNodeBase& makeNode(const QJsonObject& nodeJson, const QJsonObject& modelJson);
    CNodeBase& findUnique(const QString& modelName);
    CNodeBase* findNode(const QJsonValue& id) const;
    NodeDataConverter findConverter(const QJsonValue& converterJson) const;
    std::shared_ptr<CNodeConnection> addConnection(std::shared_ptr<CNodeConnection> connection);

    Nodes::const_iterator find(const CNodeBase& node) const;
    bool holds(const CNodeBase& node) const;
    bool isOpen(const CNodeBase& node) const;
    bool isWhole(const CNodeConnection& connection) const;
    bool canConnect(const CNodeBase& node, ENodePortType portType, int portIndex) const;
    void takeOut(CNodeBase& node);
    void removeConnection(CNodeConnection& connection, EIfThrown ifThrown);

    // Emits a signal; what handlers throw passes through, but not out of the destructor.
    template <typename Signal>
    void emitGuarded(const Signal& signal);

    // Each of these runs foreign code and returns false when that has destroyed the scene.
    bool forEachNode(const std::function<void(CNodeBase*)>& visitor) const;
    bool deferDeletion(const Core::CId& id);
    bool deleteConnectionsOf(const CNodeBase& node);

    std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>> m_connections;
    Nodes m_nodes;
    std::shared_ptr<CNodeDataModelRegistry> m_registry;
    Core::AppCoreComponents::BaseInfoPtr m_info;
    const std::unique_ptr<CDeferredQueue> m_queue;
    EStage m_stage = EStage::Open;
};

} // namespace Halvex
} // namespace Plugin
