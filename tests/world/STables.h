// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "world/CWorld.h"

#include <QJsonObject>

#include <map>
#include <optional>
#include <tuple>
#include <vector>

/**
 * What is there, as plain tables of numbers. An operation from whose hooks nothing else is done changes them as its
 * row in the table of operations says, and nothing else happens.
 */
struct STables
{
    struct SNode
    {
        int scene = 0;
        QString model;
        QString uniqueName;
        QString id;
        bool isNamed = false;   ///< Has an ANodeDataModel.
        bool isPassing = false; ///< Passes on what is newer than
        int lastPassed = 0;
        bool isSink = false;
        bool isKnown = false; ///< The service finds it by its model.
        bool ofDocument = false;
        auto key() const { return std::tie(scene, model, id, isKnown, ofDocument); }
    };
    /// A connection. An end is in its node's port table unless it was made as the only one.
    struct SLink
    {
        int scene;
        int in;
        int inPort;
        int out;
        int outPort;
        bool isConverting; ///< False as well if an end is missing.
        bool isHalf;
        auto key() const { return std::tie(scene, in, inPort, out, outPort, isConverting, isHalf); }
        bool operator<(const SLink& other) const { return key() < other.key(); }
        bool operator==(const SLink& other) const { return key() == other.key(); }
    };
    using Signal = std::pair<EHook, int>; // of a scene, or of a node that was made

    static STables of(const CWorld& world);
    /// On each side.
    static int portsOf(const QString& model);
    static SLink linkOf(const CWorld& world, const Plugin::Halvex::CNodeScene& scene,
                        const Plugin::Halvex::CNodeConnection& connection);

    /// What operations do.
    int addScene();
    void activate(int scene);
    int addNode(int scene, EKind kind);
    bool addLink(int scene, int in, int inPort, int out, int outPort, bool isConverting);
    void removeLink(const SLink& link);
    void removeNode(int node);
    void clearScene(int scene);
    void removeScene(int scene);
    void loadNode(int scene, const QJsonObject& json);
    void loadLink(int scene, const QJsonObject& json);
    void load(int scene, const QByteArray& document);
    int find(int scene, const QString& id) const;
    void announce(int node, int port);

    /// What is not as it should be after an operation that has made these tables of those before it.
    QString differenceOf(const CWorld& world) const;

    std::vector<int> scenes;
    int active = 0;
    std::map<int, SNode> nodes;
    std::vector<SLink> links;
    int nextNode = 1;
    int nextScene = 1;

    std::vector<Signal> told;
    std::map<std::pair<int, int>, int> empties; ///< How often empty data comes to a port.
    std::optional<std::pair<int, int>> walk;    ///< Where data comes from: a node and its port.
    bool hasWalks = false;                      ///< More than that; where data goes is then not looked at.
    bool isThrown = false;                      ///< A model of a document is not registered.
    bool isDeletion = false;                    ///< Connections are deleted without a node.
    bool isUnknown = false;                     ///< What happens is not said.
    std::optional<int> result;

private:
    void replaceNode(int node);
    void clearEnds(int node);
    QString differenceOfDeliveries(const STables& after, const CWorld& world) const;
    QString differenceOfSignals(const CWorld& world) const;
};
