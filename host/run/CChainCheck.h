// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/base/FlowOrder.h"
#include "host/sinks/CSinkNames.h"

#include <QHash>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QJsonArray;

namespace Plugin::Halvex {
class CNodeDataModel;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class IHostModels;

/**
 * Finds what is wrong with a chain before it is imported.
 *
 * The import leaves out what it cannot make and says nothing; a run of what is left would look sound and lack a
 * branch. So everything must be as it says: registered models, no source but the cameras, sinks with names that make
 * different folders, connections between ports that exist and whose types agree, no loops, and something for each
 * camera to feed. Only a name in "unique_sources" that nobody has is left alone: a chain may serve cameras that this
 * run lacks.
 *
 * Threads: the host's main thread.
 */
class CChainCheck
{
public:
    CChainCheck(Plugin::Halvex::INodeService& service, const IHostModels& models, const QStringList& cameras);
    ~CChainCheck();
    Q_DISABLE_COPY(CChainCheck)

    /// Once per object. Returns the first thing that is wrong, place first: "elements[3]: ..."; empty on success.
    QString check(const QJsonArray& elements);

    /// How many connections the chain makes in the scene of the camera of that place in the list.
    std::size_t connections(int camera) const;

private:
    // Cameras come first, elements behind them.
    struct SPart
    {
        QString name;
        std::unique_ptr<Plugin::Halvex::CNodeDataModel> model;
    };

    void addPart(SPart part);
    QString addElement(const QJsonValue& json);
    QString addSources(int element, const QJsonValue& json);
    QString addSource(int element, int port, const QJsonValue& json);
    QString addTargets(int element, const QJsonValue& json);
    QString addTarget(int element, const QJsonValue& json);
    QString connect(int from, int outPort, int to, int inPort);
    QString cameraWithoutChain() const;
    QString place(int part) const;

    Plugin::Halvex::INodeService& m_service;
    const int m_cameras;
    std::vector<SPart> m_parts;
    QHash<QString, int> m_numbers; // of the parts, by name
    FlowEdges m_edges;             // between parts
    CSinkNames m_sinkNames;
};

} // namespace Host
