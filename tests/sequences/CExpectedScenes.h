// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "sequences/AGraph.h"
#include "sequences/CEventLog.h"

#include <QtGlobal>

#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace Sequences {

/**
 * What should be there in scenes: nodes, connections, the data in them, and what waits in the queues; in plain lists
 * that are walked from end to end.
 *
 * The order of a scene's tables is nobody's business. Where it decides what comes next, the model looks at what came
 * next in the actual scenes, and follows if that is one of the things that could.
 */
class CExpectedScenes
{
public:
    struct SNode
    {
        int scene = 0;
        int id = 0; // 0 is no id
        EKind kind = View;
        bool hasUniqueName = false;
        bool isAdded = false; // by addNode()
        bool isKnown = false; // to the service, with its node
        bool isInScene = false;
        bool isLeaving = false;
        bool isClosed = false;
        bool isRetired = false;
        int visits = 0;
        int output = 0;
        int lastPassed = 0;
    };
    struct SConnection
    {
        int scene = 0;
        int in = 0; // 0 when the node is gone
        int inPort = 0;
        int out = 0;
        int outPort = 0;
        bool isConverting = false;
        bool isInTables = false; // of its nodes
        int number = 0;
        bool isListed = false;
        bool isLeaving = false;
        int holders = 0; // without the scene
    };
    /// A scene document.
    struct SSaved
    {
        struct SNode
        {
            int id;
            EKind kind;
        };
        struct SConnection
        {
            int inId;
            int inPort;
            int outId;
            int outPort;
            bool isConverting;
        };
        std::vector<SNode> nodes;
        std::vector<SConnection> connections;
    };
    /// Gives out the numbers of what is made.
    struct SNumbering
    {
        std::function<int()> node;
        std::function<int()> connection;
    };

    CExpectedScenes(CEventLog& log, const CEventLog& actual, SNumbering numbering);
    Q_DISABLE_COPY(CExpectedScenes)

    void addScene(int scene) { m_scenes[scene]; }
    /// What the scene says is told from now on.
    void hear(int scene) { m_scenes.at(scene).isHeard = true; }
    void destroyScene(int scene);
    bool isThere(int scene) const { return m_scenes.count(scene) != 0; }
    /// Whether it is being destroyed.
    bool isClosing(int scene) const { return m_scenes.at(scene).isClosing; }
    /// Whether nothing can be made in it any more.
    bool isClosed(int scene) const { return m_scenes.at(scene).isClosed; }

    int makeId() { return ++m_lastId; }
    /// These return 0 if there is no node, or none any more.
    int makeNode(int number, const SNode& made);
    int restoreNode(int scene, int id, EKind kind);
    int findUnique(int scene);
    int nodeWithId(int scene, int id) const;
    std::vector<int> nodesOf(int scene) const;
    bool isInScene(int node) const;
    const std::map<int, SNode>& nodes() const { return m_nodes; }
    SNode& node(int number) { return m_nodes.at(number); }
    const SNode& node(int number) const { return m_nodes.at(number); }
    void noteGone(int node);
    void removeNode(int scene, int node);
    void clearScene(int scene);
    void iterate(int scene);
    void setData(int node, int value);

    /// These return 0 if nothing was made.
    int createConnection(int scene, int in, int inPort, int out, int outPort, bool isConverting);
    int createHalfConnection(int scene, ENodePortType side, int node, int port);
    int restoreConnection(int scene, const SSaved::SConnection& saved);
    void deleteConnection(int number);
    void deleteConnectionNow(int number);
    const std::map<int, SConnection>& connections() const { return m_connections; }
    /// The handle of a connection that a scene has; 0 if none has it.
    int connectionWithNumber(int number) const;

    SSaved save(int scene);
    /// Returns false when that throws.
    bool load(int scene, const SSaved& saved);

private:
    struct SScene
    {
        bool isHeard = false;
        bool isClosing = false;
        bool isClosed = false;
        int depth = 0;
        std::deque<std::function<void()>> deferred;
    };
    class CVisit;

    const SEvent* next() const;
    template <typename Matches>
    int takeNext(std::vector<int>& candidates, const Matches& matches) const;
    int takeFirstGone(std::vector<int>& handles) const;
    int takeNextNode(int scene, std::vector<int>& candidates) const;
    bool startsRemoval(const SEvent& event, int node) const;

    // These return false when a handler has destroyed the scene.
    bool tell(int scene, const std::function<SEvent()>& event);
    bool announce(int scene, const std::function<SEvent()>& event);
    bool runDeferred(int scene);
    bool defer(int scene, const std::function<void()>& action);
    bool deleteConnectionsOf(int scene, int node);

    SEvent eventOfNode(EEvent event, int node) const;
    SEvent eventOfConnection(EEvent event, int handle) const;

    bool isOpen(int node) const;
    bool canConnect(int scene, int node, int port) const;
    std::vector<int> connectionsAt(int node, ENodePortType side, int port) const;
    void takeOut(int node);
    void retire(int node);
    void destroyNode(int node);

    int makeConnection(const SConnection& made);
    void addConnection(int handle);
    void release(int handle);
    void removeConnection(int handle);
    void removeOneOf(int scene, std::vector<int>& handles);
    void destroyConnection(int handle);

    void update(int node, int port);
    std::vector<int> inOrderOfNext(const std::vector<int>& handles) const;
    std::vector<int> shownNumbers(const std::vector<int>& handles) const;
    int shownNumber(int handle) const;
    void deliver(int handle, int value);
    int arrivingValue(int handle, int value) const;
    void receive(int node, int port, int value);

    CEventLog& m_log;
    const CEventLog& m_actual;
    SNumbering m_numbering;
    std::map<int, SScene> m_scenes;
    std::map<int, SNode> m_nodes;             // that are alive, by number
    std::map<int, SConnection> m_connections; // that are alive, by handle
    std::map<int, int> m_firstOfId;           // the first node that had it
    int m_lastId = 0;
    int m_lastHandle = 0;
};

} // namespace Sequences
