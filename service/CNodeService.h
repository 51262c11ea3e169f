// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "service/INodeService.h"

#include <QList>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <deque>
#include <functional>
#include <unordered_map>

namespace Plugin {
namespace Halvex {

/**
 * The node service. Hosts use it through INodeService, which says what each operation does.
 *
 * Costs: finding a node, its scene or its model takes a look into each scene's table at most, however many nodes there
 * are.
 */
class HALVEX_EXPORT CNodeService : public INodeService
{
    Q_OBJECT

public:
    explicit CNodeService(QObject* parent);

    /// Destroys the scenes in the order of their creation, with their own signals but none of the service's.
    ~CNodeService() override;

    Core::CId addNode(std::unique_ptr<ANodeDataModel> model, Core::AppCoreComponents::BaseInfoPtr info) override;
    CNodeBase* findNode(Core::CId nodeId) override;
    CNodeBase* findNodeByModel(ANodeDataModel* model) override;
    void removeNode(Core::CId nodeId, bool removeLoneNodeScene) override;
    void removeNodeByModel(ANodeDataModel*& model, bool removeLoneNodeScene) override;
    void removeSceneOfNode(Core::CId nodeId) override;
    void removeSceneOfNode(CNodeBase* node) override;
    Core::CId connectModels(ANodeDataModel* first, NodePortIndex firstPort, ANodeDataModel* second,
                            NodePortIndex secondPort) override;
    bool importDocument(const QString& document) override;
    bool importStoredDocuments() override;
    void addStoredDocument(const QString& document) override;
    std::unique_ptr<ANodeDataModel> createModel(const QString& modelName) override;
    void registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                               NodeDataConverter converter) override;
    QPointer<CNodeScene> getActiveScene() override;
    void setActiveScene(QPointer<CNodeScene> scene) override;
    CNodeScene* findSceneByInfo(Core::AppCoreComponents::BaseInfoPtr info) override;

    /// In the order of their creation.
    QList<CNodeScene*> scenes() const { return m_scenes; }

    /// The nodes that scenes of the service made by themselves, from a document for example, in no particular order. A
    /// node whose removal was announced is not among them any more, even if a handler's exception keeps it.
    QVector<CNodeBase*> documentNodes() const;

private Q_SLOTS:
    void onNodeCreated(CNodeBase& node);
    void onNodeDeleted(CNodeBase& node);

private:
    /// A node whose model has an identity.
    struct SKnownNode
    {
        CNodeBase* node = nullptr; ///< Null while addNode() makes it.
        bool isFromDocument = false;
        bool isLeaving = false; ///< Its removal was announced: no document node any more, yet known until it is gone.
    };

    Core::CId placeNode(std::unique_ptr<ANodeDataModel> model, const Core::AppCoreComponents::BaseInfoPtr& info);
    // \a model belongs to a node already, whoever believes to own it: that is how the same unique source comes again.
    Core::CId returnTo(ANodeDataModel& model);
    Core::CId placeInto(QPointer<CNodeScene> scene, std::unique_ptr<ANodeDataModel> model);
    CNodeBase* knownNode(const ANodeDataModel& model) const;
    void know(const Core::CId& modelId, CNodeBase& node, bool isFromDocument);
    void forget(const Core::CId& modelId, const QObject* node);

    CNodeScene* sceneOf(const CNodeBase& node) const;
    void removeNode(CNodeBase& node, bool removeLoneNodeScene);
    void removeSceneOfLoneSink(CNodeScene& scene);
    bool importAll(const QStringList& documents);

    QPointer<CNodeScene> addScene(const Core::AppCoreComponents::BaseInfoPtr& info);
    void activate(CNodeScene* scene);
    void removeScene(CNodeScene& scene);
    void destroyScene(const QPointer<CNodeScene>& scene);
    void onSceneDestroyed(CNodeScene* scene);
    void tellRemoved();

    // One thing after the other: a turn that is asked for while another one lasts comes when those before it are over.
    // Each may end the service. A turn for which there is no memory is reported and left out.
    template <typename Turn>
    void takeTurn(Turn turn);
    template <typename Turn>
    bool queueTurn(Turn turn);
    void takeTurns();

    // Emits a signal. Returns false when a handler has destroyed the service.
    bool tell(const std::function<void()>& signal);

    QPointer<CNodeScene> m_activeScene;
    QList<CNodeScene*> m_scenes;
    std::unordered_map<Core::CId, SKnownNode> m_knownNodes; // by their models' ids
    QStringList m_storedDocuments;
    QSet<CNodeScene*> m_leavingScenes;         // their removal has been asked for
    std::deque<std::function<void()>> m_turns; // that are to come
    bool m_isTelling = false;                  // one lasts
    bool m_isClosing = false;                  // in the destructor
};

} // namespace Halvex
} // namespace Plugin
