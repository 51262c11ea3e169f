// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/CNodeBase.h>
#include <Halvex/graph/CNodeConnection.h>
#include <Halvex/graph/CNodeDataModel.h>
#include <Halvex/graph/ENodePortType.h>
#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/platform/CId.h>
#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <unordered_map>

namespace Plugin::Halvex {

class CDeferredQueue;

/**
 * One dataflow graph: owns its nodes, shares its connections, announces every change of structure.
 *
 * \code
 * CNodeScene scene(registry, info, nullptr);
 * CNodeBase& camera = scene.createNode(registry->create(QStringLiteral("Camera")));
 * CNodeBase& writer = scene.createNode(registry->create(QStringLiteral("PngWriter")));
 * const auto toImage = registry->getTypeConverter(CVeltraGrabResultData().type(), CImageData().type());
 * if (!scene.createConnection(writer, 0, camera, 0, toImage)) // the consumer comes first
 *     qWarning("a port is missing");
 * \endcode
 *
 * Ownership: nodes belong to the scene alone, connections to the scene and whoever keeps the `std::shared_ptr`. The
 * registry and the information object are shared.
 *
 * Signals: an object is announced when it is complete, and its deletion while it is still whole. Handlers may call any
 * operation, and destroy the scene. Operations nest when a handler calls one. What is put off is done when the
 * outermost operation has told everybody, in the order in which it was asked for:
 *
 * - deleteConnection() in a handler is put off. deleteConnectionNow() never is.
 * - removeNode() in a handler takes the node out of nodes() at once. Its connections, and then the node itself, are
 *   deleted later.
 *
 * Exceptions of handlers, models and converters come out of the operation that called them. The outermost operation
 * still does what was put off. If several things throw, the first exception comes out and the others are reported to
 * "halvex.graph". The scene stays usable:
 *
 * - A node or connection that was announced stays, also if a handler throws then.
 * - A connection is not made if a model or converter throws on getting its first data.
 * - removeNode() and deleteConnectionNow(): if a handler throws, the node or the connection stays. Call them again to
 *   remove it. A node may have lost some of its connections by then.
 * - deleteConnection(): the connection goes, even if a handler throws.
 * - The destructor throws nothing. It reports to "halvex.graph" and goes on.
 *
 * Threads: the one that the scene lives in. Nothing is locked. A library that was built with assertions warns in
 * "halvex.graph" when an operation that changes the scene is called in another thread, once for each operation.
 */
class HALVEX_EXPORT CNodeScene : public QObject
{
    Q_OBJECT

public:
    /// A scene without a registry: nothing can be made by name until setRegistry(). A \a parent owns the scene.
    CNodeScene(Core::AppCoreComponents::BaseInfoPtr info, QObject* parent);
    /// A scene that makes models by name from \a registry.
    CNodeScene(std::shared_ptr<CNodeDataModelRegistry> registry, Core::AppCoreComponents::BaseInfoPtr info,
               QObject* parent);

    /// Removes every node as clearScene() does, with all signals, then releases info and registry.
    ~CNodeScene() override;

    /// Makes a node that owns \a model, after handing the model the scene's info. Emits nodeCreated() once. Without a
    /// model (null) nothing is made.
    /// Returns the node; noNode() if none was made, or if a handler has removed it or destroyed the scene.
    CNodeBase& createNode(std::unique_ptr<CNodeDataModel>&& model);

    /// What is returned in place of a node that does not exist. It has no ports and no id, and belongs to no scene.
    /// There is one in the process: leave it as it is. Compare addresses: `&node == &CNodeScene::noNode()`.
    static CNodeBase& noNode();

    /// Connects \a nodeOut's output port to \a nodeIn's input port. Mind the order: the in end comes first. If the
    /// output port has data, every connection of that port, the new one included, delivers it. After that the new one
    /// is entered into connections(), and connectionCreated() is emitted once. Makes nothing and returns null if a node
    /// has no such port or is being removed, or if a model that gets the data removes one of the nodes. The nodes may
    /// be in different scenes. The connection is this scene's: when another scene removes its node, no deletion is
    /// announced, and the connection stays without that end.
    std::shared_ptr<CNodeConnection> createConnection(CNodeBase& nodeIn, int portIndexIn, CNodeBase& nodeOut,
                                                      int portIndexOut, const NodeDataConverter& converter);

    /// A half connection: one with one end, while the host is choosing the other. It is in connections() but in no
    /// node's port table, and carries nothing. Emits connectionCreated() once. Null if the node has no such port or is
    /// being removed. For None there is no port to look for: the node is in the out end, the index in the in end.
    std::shared_ptr<CNodeConnection> createConnection(ENodePortType portType, CNodeBase& node, int portIndex);

    /// Deletes \a connection as deleteConnectionNow() does: at once, or, in a handler of this scene's signals, when the
    /// outermost operation ends. One that is not in connections() is left alone, and asking twice deletes once.
    void deleteConnection(CNodeConnection& connection);

    /// Deletes \a connection at once: emits connectionDeleted() while it is still whole, then takes it out of its
    /// nodes' port tables and out of connections(). It is destroyed unless somebody shares it.
    void deleteConnectionNow(CNodeConnection& connection);

    /// Emits nodeDeleted() while the node is still whole, deletes its connections (input ports first), then destroys
    /// the node with its model. One that is not in nodes() is left alone, and asking twice removes once.
    void removeNode(CNodeBase& node);

    /// Removes every node that the scene has now. Half connections stay.
    void clearScene();

    /// The scene's document: every node, and every connection that has both ends, as their own save() writes them.
    /// Indented JSON in UTF-8; DocumentKeys.h has the keys.
    QByteArray saveToMemory() const;

    /// Adds what the document \a data holds; clear the scene first to replace what it has. All nodes come before any
    /// connection, each in the document's order. Text that is no JSON object, and values of wrong types, count as
    /// missing; nothing is reported. Connections to nodes or ports that are not there are left out.
    /// Throws `std::logic_error`, "No registered model with name " and the name, at a node whose model is not
    /// registered. What was made before stays; the rest of the document is not read.
    void loadFromMemory(const QByteArray& data);

    /// Makes a node from a node object, with the id and, through restore(), the model's settings that stand there.
    /// Emits nodeCreated() once. A node of the scene that has the same id is replaced: it goes without signals, and its
    /// connections find their end cleared.
    /// With "is_unique": true in the model nothing is made: the first node whose model has that name is returned as it
    /// is, or noNode() if there is none.
    /// Throws as loadFromMemory() does if the model is not registered; the scene is then as it was.
    CNodeBase& restoreNode(const QJsonObject& nodeJson);

    /// Makes a connection from a connection object, as createConnection() does, with the converter that the registry
    /// has for the types it names. Null, and nothing is made, if a node or a port is not there.
    std::shared_ptr<CNodeConnection> restoreConnection(const QJsonObject& connectionJson);

    /// Calls \a visitor once for each node that the scene has now, in the order of nodes(). A node that was removed
    /// before its turn is skipped. An empty \a visitor throws `std::bad_function_call` at the first node.
    void iterateOverNodes(const std::function<void(CNodeBase*)>& visitor);

    /// The same with the nodes' models.
    void iterateOverNodeData(const std::function<void(CNodeDataModel*)>& visitor);

    /// The table of nodes itself, by id. A loop that changes the scene goes through a copy of the ids.
    const std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>& nodes() const;
    /// The table of connections, likewise.
    const std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>>& connections() const;

    /// The registry. There must be one, see isRegistyValid().
    CNodeDataModelRegistry& registry() const;

    /// Replaces the registry; existing nodes keep their models.
    void setRegistry(std::shared_ptr<CNodeDataModelRegistry> registry);

    /// Whether there is a registry. The spelling is what hosts call.
    bool isRegistyValid() const;

    /// The information object that the scene was made with; null if there was none.
    Core::AppCoreComponents::BaseInfoPtr getSceneInfo() const;

    /// True once the destructor runs. Handlers and models that it calls must not destroy the scene once more.
    bool isBeingDestroyed() const;

Q_SIGNALS:
    /// The node is complete and in nodes().
    void nodeCreated(CNodeBase& node);
    /// The node is about to be removed; it and its connections are still whole.
    void nodeDeleted(CNodeBase& node);
    /// The connection is complete and in connections(). Its first data has been delivered.
    void connectionCreated(CNodeConnection& connection);
    /// The connection is about to be deleted; it is still whole.
    void connectionDeleted(CNodeConnection& connection);

private:
    friend class CSceneInspector;
    friend class CNodeService; // loads what an import has made, without writing it out as text
    using Nodes = std::unordered_map<Core::CId, std::unique_ptr<CNodeBase>>;
    using ENodeStage = CNodeBase::EStage;
    using EConnectionStage = CNodeConnection::EStage;

    enum class EStage
    {
        Open,
        Closing, ///< In the destructor.
        Closed   ///< In the destructor, with all signals sent: nothing comes in any more.
    };

    // What becomes of a connection when a handler throws on hearing of its deletion. After deleteConnection() it goes:
    // who asked for it then may be unable to ask again.
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
    void removeConnection(const Core::CId& id, EIfThrown ifThrown);

    // Emits a signal; what handlers throw passes through, but not out of the destructor.
    template <typename Signal>
    void emitGuarded(const Signal& signal);

    // Each of these runs foreign code and returns false when that has destroyed the scene.
    bool forEachNode(const std::function<void(CNodeBase*)>& visitor) const;
    bool deferDeletion(const Core::CId& id);

    std::unordered_map<Core::CId, std::shared_ptr<CNodeConnection>> m_connections;
    Nodes m_nodes;
    std::shared_ptr<CNodeDataModelRegistry> m_registry;
    Core::AppCoreComponents::BaseInfoPtr m_info;
    const std::unique_ptr<CDeferredQueue> m_queue;
    EStage m_stage = EStage::Open;
};

} // namespace Plugin::Halvex
