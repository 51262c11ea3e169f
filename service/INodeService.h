// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/HalvexExport.h>
#include <Halvex/graph/NodeDataConverter.h>
#include <Halvex/graph/NodePortIndex.h>
#include <Halvex/graph/SNodeDataType.h>
#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/platform/CId.h>
#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/platform/IService.h>
#include <Halvex/scene/CNodeDataModelRegistry.h>
#include <Halvex/scene/CNodeScene.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <utility>

namespace Plugin::Halvex {

class CNodeBase;

/**
 * What a host does with graphs: its own models become nodes, nodes are connected and removed, ready-made chains are
 * imported; scenes come and go with the sources that they were made for.
 *
 * \code
 * auto camera = std::make_unique<CCameraModel>(QStringLiteral("cam-1")); // a source, isUnique()
 * const CNodeDataEntry entry = camera->dataEntry();
 * const Core::CId node = service->addNode(std::move(camera), info); // a scene of its own, now the active one
 * service->importDocument(chain);                                   // finds "cam-1" in it, see importDocument()
 * entry.setData(frame);                                             // from any thread, whenever the node is removed
 * service->removeSceneOfNode(node);
 * \endcode
 *
 * The plugin publishes one service. A host that does not link the library finds it among the published services by
 * `inherits("Plugin::Halvex::INodeService")`, and can call its virtual operations. A host with models of its own links
 * the library.
 *
 * Scenes: one of them is active, or none. A scene is made for each unique source, and for nothing else. addNode() of a
 * unique model and setActiveScene() choose the active scene. Whenever a scene goes, the oldest of those that are left
 * becomes the active one.
 *
 * Ownership: the service owns its scenes, and through them nodes and models. A pointer that it hands out is good for as
 * long as the node or scene exists: listen to the scene's signals, or keep a QPointer.
 *
 * Signals come in the order in which things happened, and every handler hears one before any hears the next. Handlers
 * may call any operation and destroy the service. What they ask for is done at once; its signals wait until the earlier
 * ones have been heard by everybody. The removal of a scene waits as a whole, since handlers that have not been called
 * yet may look at the scene. While a handler runs an event loop of its own, all that waits goes on waiting.
 *
 * Errors: no operation throws. Null pointers, unknown ids and requests that cannot be met give empty results. What
 * models and handlers throw ends the work it came from and is reported in "halvex.service".
 *
 * Threads: the host's main thread, in which the service was made. A library that was built with assertions warns in
 * "halvex.graph" when an operation that changes something is called in another thread, once for each operation.
 */
class HALVEX_EXPORT INodeService : public Core::Service::IService
{
    Q_OBJECT

public:
    /// Makes an empty registry.
    explicit INodeService(QObject* parent);
    ~INodeService() override;

    /// The catalogue that all scenes of the service share: register models of your own here. The service releases it at
    /// its very end: what the creators hold must not call the service when it is destroyed.
    std::shared_ptr<CNodeDataModelRegistry> registry() const { return m_registry; }

    /// Makes a node of \a model; returns its id, or no id.
    /// A unique source gets a new scene with \a info, which becomes the active one before the node is made. A model
    /// that is not unique goes to the active scene; without one, or while that is being destroyed, nothing is made.
    /// A model that a node of the service owns already stays where it is, whoever believes to own it: the node's id is
    /// returned. If it is unique, its scene becomes the active one.
    /// A unique model of another kind is never placed: it is destroyed, and no scene is active then.
    virtual Core::CId addNode(std::unique_ptr<ANodeDataModel> model, Core::AppCoreComponents::BaseInfoPtr info) = 0;

    /// The node with that id; null if no scene has one. If several scenes do, having read the same document, the oldest
    /// scene's.
    virtual CNodeBase* findNode(Core::CId nodeId) = 0;

    /// The node that addNode() made of \a model; null if it made none, if the node is gone, or if addNode() has not
    /// returned yet. A \a model that is not null must exist: it is asked for its id.
    virtual CNodeBase* findNodeByModel(ANodeDataModel* model) = 0;

    /// Removes the node. With \a removeLoneNodeScene, if its scene then has one node left and that one is a sink, the
    /// sink and the scene are removed as well.
    virtual void removeNode(Core::CId nodeId, bool removeLoneNodeScene) = 0;

    /// The same with the node that addNode() made of \a model. The pointer is not changed: it must not be used
    /// afterwards, since the model goes with its node.
    virtual void removeNodeByModel(ANodeDataModel*& model, bool removeLoneNodeScene) = 0;

    /// Removes the scene that holds the node, and everything in it. Emits sceneRemoving(), the scene's own signals and
    /// sceneRemoved(). If there is a scene left, the oldest becomes the active one, and activeSceneChanged() is
    /// emitted. In a handler of the service's signals all of this waits, see above.
    virtual void removeSceneOfNode(Core::CId nodeId) = 0;
    /// The same for a node that the caller has; null is ignored.
    virtual void removeSceneOfNode(CNodeBase* node) = 0;

    /// Connects two models that addNode() made nodes of: input port \a firstPort of \a first gets what output port
    /// \a secondPort of \a second gives, unconverted. Mind the order: the consumer comes first. Returns the
    /// connection's id; no id if a node or a port is not there, a handler has deleted the connection already, or one
    /// has thrown on hearing of it (the connection stays then). The connection belongs to the scene of \a first.
    virtual Core::CId connectModels(ANodeDataModel* first, NodePortIndex firstPort, ANodeDataModel* second,
                                    NodePortIndex secondPort) = 0;

    /// Loads the chain \a document, a JSON array, into the active scene, see docs/import-document.md. False without an
    /// active scene, while that is being destroyed, and when the import ended early: a model that is not registered
    /// ends it, with its name in "halvex.service"; what was made before stays. Text that is no such document
    /// contributes nothing.
    virtual bool importDocument(const QString& document) = 0;

    /// The same with all documents of addStoredDocument(), as one import. They stay stored. False also if there are
    /// none.
    virtual bool importStoredDocuments() = 0;

    /// Keeps a chain for importStoredDocuments().
    virtual void addStoredDocument(const QString& document) = 0;

    /// A new model from the registry; null if none of that name is registered, or if it is no ANodeDataModel.
    virtual std::unique_ptr<ANodeDataModel> createModel(const QString& modelName) = 0;

    /// As CNodeDataModelRegistry::registerTypeConverter().
    virtual void registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                                       NodeDataConverter converter) = 0;

    /// The active scene; null if there is none.
    virtual QPointer<CNodeScene> getActiveScene() = 0;

    /// Makes \a scene the active one and emits activeSceneChanged(), even if it is active already. Ignores null and
    /// scenes that are not the service's.
    virtual void setActiveScene(QPointer<CNodeScene> scene) = 0;

    /// The oldest scene with that very information object, or, if \a info is null, without any; null if there is none.
    virtual CNodeScene* findSceneByInfo(Core::AppCoreComponents::BaseInfoPtr info) = 0;

Q_SIGNALS:
    /// \a scene is the active one, perhaps as before. Null after addNode() of a unique model that is no source.
    void activeSceneChanged(CNodeScene* scene);
    /// The service has made \a scene. Once for each, before it is active and has nodes. After an addNode() in a handler
    /// the signal waits as all do: the scene may have nodes by then, and if it is gone the signal is not sent.
    void sceneAdded(CNodeScene* scene);
    /// \a scene is about to be removed; it is still whole. Not sent for a scene that somebody else destroys.
    void sceneRemoving(CNodeScene* scene);
    /// A scene is gone, whoever destroyed it. Once for each.
    void sceneRemoved();

private:
    std::shared_ptr<CNodeDataModelRegistry> m_registry;
};

} // namespace Plugin::Halvex
