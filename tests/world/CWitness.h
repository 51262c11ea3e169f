// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CWorldModel.h"

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QPointer>

#include <map>
#include <set>
#include <vector>

/**
 * Hears every signal of a service, its scenes and what is in them, calls the hooks, and looks whether what is told is
 * true: everything is told once, and created before deleted; what a handler is given is whole, for the last handler
 * too; nothing is told of what is gone.
 *
 * Nodes and scenes get numbers, from 1, in the order in which they come.
 */
class CWitness
{
public:
    using CNodeBase = Plugin::Halvex::CNodeBase;
    using CNodeConnection = Plugin::Halvex::CNodeConnection;
    using CNodeScene = Plugin::Halvex::CNodeScene;

    /// What was told in a step: signals of the service, of nodes and of connections.
    struct STold
    {
        EHook signal;
        int scene; ///< Or 0.
        int node;  ///< For a connection its in node.
        int out;
    };

    explicit CWitness(Plugin::Halvex::CNodeService& service);
    Q_DISABLE_COPY(CWitness)

    /// Hears \a scene, which may not have been told yet.
    void hear(CNodeScene& scene);

    int numberOf(const CNodeScene* scene) const;
    int numberOf(const CNodeBase* node) const;
    /// Whether nodeCreated() has come for it.
    bool isCreated(const CNodeBase* node) const
    {
        const auto known = m_nodes.find(node);
        return known != m_nodes.end() && known->second.created != 0;
    }
    int nextNode() const { return m_lastNode + 1; }
    int nextScene() const { return m_lastScene + 1; }

    /// Whether a handler of \a scene's signals is being called.
    bool isTelling(const CNodeScene* scene) const { return m_telling.count(scene) != 0; }

    void beginStep();
    const std::vector<STold>& told() const { return m_told; }

    /// Not everything is told of what a document replaces, nor after something was thrown. A scene that the host
    /// destroys is gone for handlers of the service as well.
    void onReplacement() { m_mayReplace = true; }
    void onThrown() { m_isThrown = true; }
    void onSceneDestroyedByHost() { m_hasHostDestroyedScene = true; }
    bool hasHostDestroyedScene() const { return m_hasHostDestroyedScene; }

    void complain(const char* what) { require(false, what); }
    /// The first untruth that was told; empty if there was none.
    QString complaint() const { return m_complaint; }
    /// The same, and what is untrue when nothing is under way. \a kept: so many connections are shared.
    QString complaintAfterStep(std::size_t kept);

private:
    struct SNode
    {
        int number = 0;
        int created = 0;
        int deleted = 0;
        bool isLate = false; ///< Made while its scene is destroyed, which then takes it along in silence.
    };
    struct SConnection
    {
        int created = 0;
        int deleted = 0;
        QPointer<CNodeScene> scene;
        int ends = 0; ///< How many it has, as long as nothing takes one away in silence.
    };
    struct SScene
    {
        int number = 0;
        bool isAdded = false;
        bool isRemoving = false;
    };

    template <typename Signal>
    void hearService(EHook hook, Signal signal);
    void onServiceSignal(EHook hook, CNodeScene* scene);
    void onLastHandler(EHook hook, CNodeScene* scene);
    void onNode(EHook hook, CNodeScene& scene, CNodeBase& node);
    void onConnection(EHook hook, CNodeScene& scene, CNodeConnection& connection);
    void hearModel(CNodeBase& node);
    SNode& know(CNodeScene& scene, CNodeBase& node);
    SConnection& know(CNodeScene& scene, CNodeConnection& connection);
    static int allEndsOf(const CNodeConnection& connection);
    static int endsOf(const CNodeScene& scene, const CNodeConnection& connection);
    void call(EHook hook, const CNodeScene& scene, const void* object);
    void onGone(const SNode& node);
    void onGone(const SConnection& connection);
    void require(bool holds, const char* what);

    QPointer<Plugin::Halvex::CNodeService> m_service;
    std::map<const CNodeScene*, SScene> m_scenes;
    std::map<const CNodeBase*, SNode> m_nodes;
    std::map<const CNodeConnection*, SConnection> m_connections;
    std::vector<STold> m_told;
    std::multiset<const CNodeScene*> m_telling;
    std::pair<EHook, const CNodeScene*> m_lastSignal; // of the service
    QPointer<CNodeScene> m_lastActive;                // as it was told
    int m_lastNode = 0;
    int m_lastScene = 0;
    int m_removedScenes = 0; // as it was told
    bool m_mayReplace = false;
    bool m_isThrown = false;
    bool m_hasHostDestroyedScene = false;
    QString m_complaint;
    QObject m_context; // goes first, and the connections with it
};
