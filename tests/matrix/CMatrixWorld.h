// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "matrix/CStepModel.h"

#include <Halvex/models/CNodeDecouplerDataModelBase.h>
#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QByteArray>
#include <QPointer>
#include <QString>
#include <QWeakPointer>

#include <functional>
#include <map>
#include <memory>

/// What an operation works on, as seen from where the hook runs.
enum class ETarget
{
    AtHand,
    Upstream,
    Downstream,
    Unrelated
};

/// Whether the targets lie in one scene or in a scene each, connected with each other.
enum class ELayout
{
    OneScene,
    SceneEach
};

/// What an operation needs of its target.
enum class EPart
{
    Connection,
    Node,
    Decoupler,
    Scene,
    OwnedScene ///< One that the service has.
};

/// An information object that runs the test's code when it goes.
class CMatrixInfo : public Core::AppCoreComponents::IBaseInfo
{
public:
    CMatrixInfo() { ++s_alive; }
    ~CMatrixInfo() override
    {
        --s_alive;
        if (onDestroyed)
            onDestroyed();
    }
    static int alive() { return s_alive; }

    std::function<void()> onDestroyed;

private:
    static inline int s_alive = 0;
};

/// A node with what is around it. Nothing here keeps anything alive.
struct SPlace
{
    bool has(EPart part, const Plugin::Halvex::CNodeService& service) const;
    CStepModel& model() const { return *static_cast<CStepModel*>(node->nodeDataModel()); }
    Plugin::Halvex::CNodeDecouplerDataModelBase& decouplerModel() const;

    /// Hands \a data to the decoupler, which passes it on as soon as it can.
    void feedDecoupler(Plugin::Halvex::CNodeDataPtr data) const;

    QPointer<Plugin::Halvex::CNodeScene> scene;
    QPointer<Plugin::Halvex::CNodeBase> node;
    QPointer<Plugin::Halvex::CNodeBase> feeder;
    /// From the feeder to the node. No std::weak_ptr, which would keep the memory, and hide who touches it too late.
    QPointer<Plugin::Halvex::CNodeConnection> connection;
    QPointer<Plugin::Halvex::CNodeBase> decoupler; ///< Fed by the node, if the world has decouplers.
    QPointer<Plugin::Halvex::CNodeBase> source;    ///< The unique one that the scene was made for.
    QString sourceName;
    QWeakPointer<CMatrixInfo> info; ///< The scene's.
};

/**
 * A service with a chain, upstream → at hand → downstream, each of which is fed by what comes before it, and with
 * another pair of nodes that is not connected to the chain.
 */
class CMatrixWorld
{
public:
    CMatrixWorld(ELayout layout, bool hasDecouplers);
    Q_DISABLE_COPY(CMatrixWorld)

    SPlace& at(ETarget target) { return m_places[target]; }
    SPlace& hand() { return at(ETarget::AtHand); }
    Plugin::Halvex::CNodeService& service() { return *m_service; }

    /// Lets the workers of all decouplers run, and leaves data waiting in them. Returns whether they do.
    bool startDecouplers();

    /// Whether the node at hand is the first to go when its scene is cleared. The order is that of the scene's table,
    /// and differs from world to world.
    bool isHandFirst();

    /// What the hook does: once, at its first call.
    void setHandler(std::function<void()> handler) { m_handler = std::move(handler); }
    void fire();
    std::function<void()> firing()
    {
        return [this] { fire(); };
    }
    bool hasFired() const { return m_hasFired; }

    /// Makes the connection from \a place's feeder to its node.
    static std::shared_ptr<Plugin::Halvex::CNodeConnection> connectPlace(const SPlace& place);

    /// Adds a node that \a place's decoupler feeds.
    CStepModel& addBehindDecoupler(const SPlace& place);

    /// Connects handlers to all signals of the service and its scenes that look at what they are given.
    void addWitnesses();

    /// A host that destroys a scene of the service destroys it for the handlers of the service's signals as well.
    void destroyScene(Plugin::Halvex::CNodeScene* scene);

    /// Sends a new number through \a place, if it is still there.
    void feed(const SPlace& place);

    /// The scene document that holds \a place's node, made anew, and its connection.
    static QByteArray sceneDocument(const SPlace& place);

    /// The import document that adds a node behind the unique source of \a place's scene.
    static QString importDocument(const SPlace& place);

    /// Called with each model that the registry makes.
    std::function<void(CStepModel&)> onMade;

    /// What is wrong with the scenes of the service, or was with what handlers were given; empty if nothing is.
    QString inconsistency() const;

    /// Sends a number into every node and looks where it comes out: in every node that a connection leads to, and
    /// nowhere else. Returns what is wrong.
    QString inconsistencyOfWalks();

private:
    void witness(const Plugin::Halvex::CNodeBase& node);
    void witness(const Plugin::Halvex::CNodeConnection& connection);
    void witness(Plugin::Halvex::CNodeScene* scene);
    void addScene(SPlace& place, const QString& name);
    Plugin::Halvex::CNodeBase& addStep(Plugin::Halvex::CNodeScene& scene);

    std::map<ETarget, SPlace> m_places;
    std::function<void()> m_handler;
    bool m_hasFired = false;
    int m_lastNumber = 0;
    QString m_complaint; // of a witness
    bool m_hasHostDestroyedScene = false;
    std::unique_ptr<Plugin::Halvex::CNodeService> m_service; // goes first
};
