// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

#include <QHash>
#include <QObject>
#include <QStringList>

/**
 * What a service and its scenes say, in one list. Scenes are numbered from 1 as they were added, nodes have the names
 * of their models: "added 1", "active 1", "active none", "removing 1", "removed", "1 created cam", "1 deleted cam",
 * "1 connected cam0-view0", "1 disconnected cam0-view0".
 */
class CServiceLog
{
public:
    explicit CServiceLog(Plugin::Halvex::CNodeService& service)
        : m_service(service)
    {
        using Plugin::Halvex::CNodeScene;
        using Plugin::Halvex::INodeService;
        QObject::connect(&service, &INodeService::sceneAdded, &m_context, [this](CNodeScene* scene) { add(scene); });
        QObject::connect(&service, &INodeService::activeSceneChanged, &m_context,
                         [this](CNodeScene* scene) { said << "active " + numberOf(scene); });
        QObject::connect(&service, &INodeService::sceneRemoving, &m_context,
                         [this](CNodeScene* scene) { said << "removing " + numberOf(scene); });
        QObject::connect(&service, &INodeService::sceneRemoved, &m_context, [this] { said << "removed"; });
    }

    /// What was said since the last call.
    QStringList take() { return std::exchange(said, {}); }

    QString numberOf(const Plugin::Halvex::CNodeScene* scene) const
    {
        return scene ? m_numbers.value(scene, QStringLiteral("unknown")) : QStringLiteral("none");
    }

    QStringList said;

private:
    void add(Plugin::Halvex::CNodeScene* scene)
    {
        using Plugin::Halvex::CNodeScene;
        const QString number = QString::number(++m_count);
        m_numbers[scene] = number;
        said << "added " + number;
        if (!m_service.scenes().contains(scene))
            return; // another handler has destroyed it
        const auto log = [this, scene, number](auto signal, const QString& what) {
            QObject::connect(scene, signal, &m_context,
                             [this, prefix = number + what](auto& subject) { said << prefix + nameOf(subject); });
        };
        log(&CNodeScene::nodeCreated, " created ");
        log(&CNodeScene::nodeDeleted, " deleted ");
        log(&CNodeScene::connectionCreated, " connected ");
        log(&CNodeScene::connectionDeleted, " disconnected ");
    }

    static QString nameOf(const Plugin::Halvex::CNodeBase& node) { return node.nodeDataModel()->name(); }
    static QString nameOf(const Plugin::Halvex::CNodeConnection& connection)
    {
        using Plugin::Halvex::ENodePortType;
        return endOf(connection, ENodePortType::Out) + '-' + endOf(connection, ENodePortType::In);
    }
    static QString endOf(const Plugin::Halvex::CNodeConnection& connection, Plugin::Halvex::ENodePortType side)
    {
        const Plugin::Halvex::CNodeBase* const node = connection.getNode(side);
        return node ? nameOf(*node) + QString::number(connection.getPortIndex(side)) : QString();
    }

    Plugin::Halvex::CNodeService& m_service;
    QHash<const QObject*, QString> m_numbers;
    int m_count = 0;
    QObject m_context;
};
