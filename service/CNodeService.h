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
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/INodeService.h>

#include <QList>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <unordered_map>
#include <utility>

namespace Plugin::Halvex {

class CDeferredQueue;

/**
 * The node service. Hosts use it through INodeService, which says what each operation does.
 *
 * Costs: finding a node or its scene takes at most one look-up in each scene's table, however many nodes there are.
 */
class HALVEX_EXPORT CNodeService : public INodeService
{
    Q_OBJECT

public:
    /// Without scenes. A \a parent owns the service: one that is published by a QSharedPointer has none.
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

    /// All scenes, in the order of their creation.
    QList<CNodeScene*> scenes() const { return m_scenes; }

    /// The nodes with an ANodeDataModel that addNode() did not make, from a document for example. In no particular
    /// order. A node leaves the list when its removal is announced. It does not come back, even if a handler throws
    /// then and so keeps the node.
    QVector<CNodeBase*> documentNodes() const;

private Q_SLOTS:
    void onNodeCreated(CNodeBase& node);
    void onNodeDeleted(CNodeBase& node);

private:
    enum class EKnownNode
    {
        BeingAdded,  ///< By addNode(), which has not returned yet.
        Added,       ///< By addNode().
        InDocument,  ///< Made otherwise: one of documentNodes().
        LeftDocument ///< The same, after its removal was announced.
    };
    /// A node whose model has an identity, until it is destroyed.
    struct SKnownNode
    {
        EKnownNode state;
        CNodeBase* node; ///< Null until the scene announces it.
    };

    Core::CId idOfKnownModel(ANodeDataModel& model);
    // The active scene; null while it is being destroyed: what it took would go with it.
    HALVEX_NO_EXPORT CNodeScene* openScene() const;
    Core::CId placeNotUnique(std::unique_ptr<ANodeDataModel> model);
    Core::CId placeInto(QPointer<CNodeScene> scene, std::unique_ptr<ANodeDataModel> model);
    void removeNode(CNodeBase& node, bool removeLoneNodeScene);
    void removeSceneOfLoneSink(CNodeScene& scene);
    bool importAll(const QStringList& documents);

    // Null if the node is in no scene: it lives on when it was replaced or removed while code stands in it.
    CNodeScene* findSceneOf(const CNodeBase& node) const;
    QPointer<CNodeScene> addScene(const Core::AppCoreComponents::BaseInfoPtr& info);
    void activateScene(CNodeScene* scene);
    void removeScene(CNodeScene& scene);
    void onSceneDestroyed(CNodeScene* scene); // tells of it; then the first of the others is the active one

    // Does \a work, which emits a signal, when what was asked for before it is done. It may end the service.
    template <typename Work>
    void takeTurn(Work work);

    // Emits a signal, and reports what its handlers throw. Returns false when a handler has destroyed the service.
    template <typename Signal>
    bool emitGuarded(const Signal& signal);

    QPointer<CNodeScene> m_activeScene;
    QList<CNodeScene*> m_scenes;
    std::unordered_map<Core::CId, SKnownNode> m_knownNodes; // by their models' ids
    QStringList m_storedDocuments;
    QSet<CNodeScene*> m_leavingScenes; // their removal has been asked for
    std::unique_ptr<CDeferredQueue> m_turns;
    bool m_isClosing = false; // in the destructor
};

} // namespace Plugin::Halvex
