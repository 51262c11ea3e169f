// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "support/CTestModel.h"
#include "support/CTestScene.h"

#include <Halvex/platform/IBaseInfo.h>
#include <Halvex/scene/CNodeScene.h>

#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

/// A node of a scene, with the model in it.
struct SPlaced
{
    Plugin::Halvex::CNodeBase& node;
    CTestModel& model;
};

inline SPlaced place(Plugin::Halvex::CNodeScene& scene, const QString& name = QStringLiteral("N"),
                     unsigned int inPorts = 1, unsigned int outPorts = 1)
{
    auto model = std::make_unique<CTestModel>(inPorts, outPorts, name);
    CTestModel& placed = *model;
    return {scene.createNode(std::move(model)), placed};
}

inline std::shared_ptr<Plugin::Halvex::CNodeConnection> join(Plugin::Halvex::CNodeScene& scene, const SPlaced& from,
                                                             const SPlaced& to, int outIndex = 0, int inIndex = 0)
{
    return scene.createConnection(to.node, inIndex, from.node, outIndex, {});
}

/// The node at one end of \a connection.
inline Plugin::Halvex::CNodeBase* endOf(const Plugin::Halvex::CNodeConnection& connection,
                                        Plugin::Halvex::ENodePortType side)
{
    return connection.getNode(side);
}

inline bool isInTable(const Plugin::Halvex::CNodeScene& scene, const Plugin::Halvex::CNodeConnection& connection)
{
    const auto found = scene.connections().find(connection.id());
    return found != scene.connections().end() && found->second.get() == &connection;
}

/// In the scene's table, with both ends set and entered in their ports.
inline bool isWhole(const Plugin::Halvex::CNodeScene& scene, const Plugin::Halvex::CNodeConnection& connection)
{
    using Plugin::Halvex::ENodePortType;
    for (const ENodePortType side : {ENodePortType::In, ENodePortType::Out}) {
        const Plugin::Halvex::CNodeBase* const node = endOf(connection, side);
        if (!node || node->nodeState().connections(side, connection.getPortIndex(side)).count(connection.id()) != 1)
            return false;
    }
    return isInTable(scene, connection);
}

/// What the signals of a scene say, in order: "created A", "connected A0-B0", "disconnected A0-", "deleted A".
class CSignalLog
{
    using CNodeBase = Plugin::Halvex::CNodeBase;
    using CNodeConnection = Plugin::Halvex::CNodeConnection;
    using CNodeScene = Plugin::Halvex::CNodeScene;
    using ENodePortType = Plugin::Halvex::ENodePortType;

public:
    explicit CSignalLog(CNodeScene& scene)
    {
        const auto logNode = [this](const QString& what) {
            return [this, what](CNodeBase& node) { said << what + ' ' + nameOf(&node); };
        };
        const auto logConnection = [this](const QString& what) {
            return [this, what](CNodeConnection& connection) { said << what + ' ' + endsOf(connection); };
        };
        QObject::connect(&scene, &CNodeScene::nodeCreated, &m_context, logNode("created"));
        QObject::connect(&scene, &CNodeScene::nodeDeleted, &m_context, logNode("deleted"));
        QObject::connect(&scene, &CNodeScene::connectionCreated, &m_context, logConnection("connected"));
        QObject::connect(&scene, &CNodeScene::connectionDeleted, &m_context, logConnection("disconnected"));
    }

    /// How often it said that something was created, deleted, connected or disconnected.
    int count(const QString& what) const
    {
        int found = 0;
        for (const QString& entry : said)
            found += entry.startsWith(what + ' ') ? 1 : 0;
        return found;
    }

    QStringList said;

private:
    static QString nameOf(const CNodeBase* node) { return node->nodeDataModel()->name(); }
    static QString endOf(const CNodeConnection& connection, ENodePortType side)
    {
        const CNodeBase* const node = ::endOf(connection, side);
        return node ? nameOf(node) + QString::number(connection.getPortIndex(side)) : QString();
    }
    static QString endsOf(const CNodeConnection& connection)
    {
        return endOf(connection, ENodePortType::Out) + '-' + endOf(connection, ENodePortType::In);
    }

    QObject m_context;
};

/// A scene with the nodes A and B, which have two ports on each side, and what its signals say from then on.
class CPairScene : public CTestScene
{
public:
    CPairScene()
        : CTestScene(nullptr, nullptr)
    {
    }

    SPlaced a = place(*this, QStringLiteral("A"), 2, 2);
    SPlaced b = place(*this, QStringLiteral("B"), 2, 2);
    CSignalLog log{*this};
};

/// A scene's information object, which runs the test's code when it goes.
class CTestInfo : public Core::AppCoreComponents::IBaseInfo
{
public:
    explicit CTestInfo(std::function<void()> onDestroyed = {})
        : m_onDestroyed(std::move(onDestroyed))
    {
    }
    ~CTestInfo() override
    {
        if (m_onDestroyed)
            m_onDestroyed();
    }
    Q_DISABLE_COPY(CTestInfo)

private:
    std::function<void()> m_onDestroyed;
};

/// Something for a converter to capture that runs the test's code when it is copied.
struct SCopyWatch
{
    explicit SCopyWatch(std::function<void()> code)
        : onCopied(std::move(code))
    {
    }
    SCopyWatch(const SCopyWatch& other)
        : onCopied(other.onCopied)
    {
        onCopied();
    }
    SCopyWatch& operator=(const SCopyWatch&) = delete;
    ~SCopyWatch() = default;

    std::function<void()> onCopied;
};
