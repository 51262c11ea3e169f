// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CWitness.h"
#include "world/CWorldWorker.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <QByteArray>
#include <QWeakPointer>

#include <functional>
#include <memory>
#include <vector>

/// What an operation needs of its target.
enum class EPart
{
    Nothing,
    Service,
    Connection,
    Node,
    Decoupler,
    Worker,
    Scene,
    OwnedScene ///< One that the service has, and that is not being destroyed.
};

/// A node with what is around it. Nothing here keeps anything alive.
struct SPlace
{
    QPointer<Plugin::Halvex::CNodeScene> scene;
    QPointer<Plugin::Halvex::CNodeBase> node;
    QPointer<Plugin::Halvex::CNodeBase> feeder; ///< What it gets its data from.
    /// From the feeder to the node. No std::weak_ptr, which would keep the memory, and hide who touches it too late.
    QPointer<Plugin::Halvex::CNodeConnection> connection;
    QPointer<Plugin::Halvex::CNodeBase> decoupler;
    QPointer<Plugin::Halvex::CNodeBase> worker;
    QPointer<Plugin::Halvex::CNodeBase> source; ///< The unique one that the scene was made for.
    QString sourceName;
    QWeakPointer<CWorldInfo> info; ///< The scene's.

    /// The model of the node; null if there is none, or it is of another kind.
    CWorldModel* model() const { return node ? dynamic_cast<CWorldModel*>(node->nodeDataModel()) : nullptr; }
    Plugin::Halvex::CNodeDecouplerDataModelBase& decouplerModel() const
    {
        return *static_cast<Plugin::Halvex::CNodeDecouplerDataModelBase*>(decoupler->nodeDataModel());
    }
    CWorldWorker& workerModel() const { return *static_cast<CWorldWorker*>(worker->nodeDataModel()); }
};

/// A service with its scenes: what the operations work on. There is one at a time, which hears the hooks.
class CWorld : public IHookListener
{
public:
    using CNodeBase = Plugin::Halvex::CNodeBase;
    using CNodeDataPtr = Plugin::Halvex::CNodeDataPtr;
    using CNodeScene = Plugin::Halvex::CNodeScene;
    using CNodeService = Plugin::Halvex::CNodeService;
    using NodeDataConverter = Plugin::Halvex::NodeDataConverter;
    using TestDecoupler = Plugin::Halvex::CGenericNodeDecouplerDataModel<CTestData>;

    /// What a model has received.
    struct SReceived
    {
        int node;
        int port;
        int value;
    };

    CWorld();
    ~CWorld() override;
    Q_DISABLE_COPY(CWorld)

    bool hasService() const { return m_service && !m_isServiceLeaving; }
    CNodeService& service() const { return *m_service; }
    CWitness& witness() { return m_witness; }
    const CWitness& witness() const { return m_witness; }
    std::vector<CNodeScene*> scenes() const;
    /// Whether no end is in another scene, whose nodes may have the ids of this one's.
    static bool staysInScene(const CNodeScene& scene, const Plugin::Halvex::CNodeConnection& connection);
    /// Whether the operation of that part can be done there.
    bool has(EPart part, const SPlace& place) const;

    /// What the host does.
    std::unique_ptr<CWorldModel> makeSource(QString* name = nullptr);
    std::unique_ptr<CWorldWorker> makeWorker() { return std::make_unique<CWorldWorker>(m_pool); }
    CNodeDataPtr makeNextData() { return makeData(++m_lastSending * perSending); }
    /// Adds one to what passes, so that it shows.
    NodeDataConverter converter();
    /// Returns the node that the service says it has added; null if it says none.
    CNodeBase* addNode(std::unique_ptr<Plugin::Halvex::ANodeDataModel> model, const QSharedPointer<CWorldInfo>& info);
    void destroyScene(CNodeScene* scene);
    void destroyService();
    /// The scene document that holds \a place's node, made anew, and its connection.
    static QByteArray sceneDocument(const SPlace& place);

    void onReceived(const void* model, int value, int port) override;
    void onUntruth(const char* what) override { m_witness.complain(what); }
    void beginStep();
    const std::vector<SReceived>& received() const { return m_received; }
    int conversions() const { return m_conversions; }

    /// What is wrong with the scenes of the service, or was with what handlers were given; empty if nothing is.
    QString inconsistency() const;
    /// Sends a number into every node and looks where it comes out: in every node that a connection leads to, and
    /// nowhere else. Returns what is wrong.
    QString inconsistencyOfWalks();
    /// Reads each scene's document into another scene. Returns what has not come back.
    QString inconsistencyOfDocuments() const;
    /// Lets all results of workers arrive. Returns what is wrong.
    QString inconsistencyOfWorkers() const;

    // What the host keeps.
    std::vector<std::shared_ptr<Plugin::Halvex::CNodeConnection>> kept;
    QByteArray saved;
    int result = 0; ///< What the last operation said: whether it has done something.

private:
    std::vector<CWorldWorker*> workers() const;

    CHeldPool m_pool; // outlives the workers
    CNodeService* m_service;
    CWitness m_witness;
    bool m_isServiceLeaving = false;
    int m_lastSource = 0;
    int m_lastSending = 0;
    int m_conversions = 0;
    std::vector<SReceived> m_received;
};
