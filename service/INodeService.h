// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "graph/NodeDataConverter.h"
#include "graph/NodePortIndex.h"
#include "models/ANodeDataModel.h"
#include "platform/CId.h"
#include "platform/IBaseInfo.h"
#include "platform/IService.h"
#include "scene/CNodeDataModelRegistry.h"
#include "scene/CNodeScene.h"

#include <Halvex/HalvexExport.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <utility>

namespace Plugin {
namespace Halvex {

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
 * `inherits("Plugin::Halvex::INodeService")` and calls the virtual operations; models and nodes of its own need the
 * library.
 *
 * Scenes: one of them is active, or none. Only unique sources make scenes. Which scene is active changes through
 * addNode() of a unique model, setActiveScene(), and with every scene that goes, when the first in the order of their
 * creation becomes the active one.
 *
 * Ownership: the service owns its scenes, and through them nodes and models. What it hands out is a plain pointer that
 * lives as long as the node or scene; listen to the scene's signals, or keep a QPointer.
 *
 * Signals come in the order in which things happened, and every handler hears one before any hears the next. Handlers
 * may call any operation and destroy the service. What they ask for is done at once, and its signals come in their
 * turn. Only the removal of a scene is put off as a whole, until its turn: handlers that have not been called yet may
 * look at the scene. A handler that runs an event loop of its own holds all of this up until it returns.
 *
 * Errors: no operation throws. Null pointers, unknown ids and requests that cannot be met give empty results. What
 * models and handlers throw ends the work it came from and is reported in "halvex.service".
 *
 * Threads: the host's main thread.
 */
class HALVEX_EXPORT INodeService : public Core::Service::IService
{
    Q_OBJECT

public:
    /// Makes an empty registry.
    explicit INodeService(QObject* parent);
    ~INodeService() override;

    /// The catalogue that all scenes of the service share: register models of your own here. It is released last:
    /// nothing that its creators hold may call the service when it goes.
    std::shared_ptr<CNodeDataModelRegistry> registry() const { return m_registry; }

    /// Makes a node of \a model; returns its id, or no id.
    /// A unique source gets a new scene with \a info, which becomes the active one before the node is made. A model
    /// that is not unique goes to the active scene; without one nothing is made.
    /// A model that a node of the service owns already stays where it is, whoever believes to own it: the node's id is
    /// returned. If it is unique, its scene becomes the active one.
    /// A unique model of another kind is never placed: it is destroyed, and no scene is active then.
    virtual Core::CId addNode(std::unique_ptr<ANodeDataModel> model, Core::AppCoreComponents::BaseInfoPtr info) = 0;

    /// The node with that id; null if no scene has one. The first, if two scenes have one from the same document.
    virtual CNodeBase* findNode(Core::CId nodeId) = 0;

    /// The node that addNode() made of \a model; null if it made none, the node is gone, or addNode() has not returned
    /// yet. \a model is null or a model that exists: it is asked for its id.
    virtual CNodeBase* findNodeByModel(ANodeDataModel* model) = 0;

    /// Removes the node. With \a removeLoneNodeScene, if its scene then has one node left and that one is a sink, the
    /// sink and the scene are removed as well.
    virtual void removeNode(Core::CId nodeId, bool removeLoneNodeScene) = 0;

    /// The same with the node that addNode() made of \a model. The pointer is left as it is, and dangles afterwards.
    virtual void removeNodeByModel(ANodeDataModel*& model, bool removeLoneNodeScene) = 0;

    /// Removes the scene that holds the node, and everything in it: sceneRemoving(), the scene's own signals,
    /// sceneRemoved(), and, if there is a scene left, activeSceneChanged() with the first one, which is the active one
    /// from then on. In a handler of the service's signals, and in what it calls, all that comes later, in its turn.
    virtual void removeSceneOfNode(Core::CId nodeId) = 0;
    virtual void removeSceneOfNode(CNodeBase* node) = 0;

    /// Connects two models that addNode() made nodes of: input port \a firstPort of \a first gets what output port
    /// \a secondPort of \a second gives, unconverted. Mind the order: the consumer comes first. Returns the
    /// connection's id; no id if a node or a port is not there, a handler has deleted the connection already, or one
    /// has thrown on hearing of it (the connection stays then). The connection belongs to the scene of \a first.
    virtual Core::CId connectModels(ANodeDataModel* first, NodePortIndex firstPort, ANodeDataModel* second,
                                    NodePortIndex secondPort) = 0;

    /// Loads the chain \a document, a JSON array, into the active scene, see docs/import-document.md. False without an
    /// active scene, and when the import ended early: a model that is not registered ends it, with its name in
    /// "halvex.service"; what was made before stays. Text that is no such document contributes nothing.
    virtual bool importDocument(const QString& document) = 0;

    /// The same with all documents of addStoredDocument(), as one import. They are kept. False also without any.
    virtual bool importStoredDocuments() = 0;

    /// Keeps a chain for importStoredDocuments().
    virtual void addStoredDocument(const QString& document) = 0;

    /// A new model from the registry; null if none of that name is registered, or it has no identity
    /// (ANodeDataModel), and is then destroyed.
    virtual std::unique_ptr<ANodeDataModel> createModel(const QString& modelName) = 0;

    /// As CNodeDataModelRegistry::registerTypeConverter().
    virtual void registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                                       NodeDataConverter converter) = 0;

    virtual QPointer<CNodeScene> getActiveScene() = 0;

    /// Makes a scene of the service the active one; emits activeSceneChanged() even if it was. Ignores others and null.
    virtual void setActiveScene(QPointer<CNodeScene> scene) = 0;

    /// The first scene with that very information object, or without one if \a info is null; null if there is none.
    virtual CNodeScene* findSceneByInfo(Core::AppCoreComponents::BaseInfoPtr info) = 0;

Q_SIGNALS:
    /// \a scene is the active one, perhaps as before; null when addNode() of a unique model found no scene.
    void activeSceneChanged(CNodeScene* scene);
    /// Once for each scene, before it is active and has nodes; for one that addNode() makes in a handler, when its turn
    /// has come. Not sent for a scene that is gone by then.
    void sceneAdded(CNodeScene* scene);
    /// \a scene is about to be removed; it is still whole. Not sent for a scene that somebody else destroys.
    void sceneRemoving(CNodeScene* scene);
    /// A scene is gone, whoever destroyed it. Once for each.
    void sceneRemoved();

private:
    std::shared_ptr<CNodeDataModelRegistry> m_registry;
};

} // namespace Halvex
} // namespace Plugin
