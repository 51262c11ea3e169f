// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/CId.h>

#include <QPointer>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

namespace Plugin::Halvex {
class CNodeBase;
class CNodeScene;
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class CStreamGraph;
class IHostModels;
struct SChain;

/**
 * Builds the graphs of a run with the node service: each camera gets a scene of its own, into which a chain is imported
 * or a scene document is loaded.
 *
 * \code
 * QString error;
 * const auto graphs = CGraphBuilder(service, models).import(chain, {"fake-1", "fake-2"}, &error);
 * if (!error.isEmpty())
 *     return fail(error);
 * \endcode
 *
 * What is wrong is told in one line, or of a document in one for each of its errors, which names the place in it.
 * Scenes that were made before stay.
 *
 * Threads: the host's main thread.
 */
class CGraphBuilder
{
public:
    /// Both outlive this object.
    CGraphBuilder(Plugin::Halvex::INodeService& service, const IHostModels& models);

    /// A graph for each camera, in their order, with all of the chains side by side. On failure the reason in \a error.
    std::vector<std::unique_ptr<CStreamGraph>> import(const std::vector<SChain>& chains, const QStringList& cameras,
                                                      QString* error);
    std::vector<std::unique_ptr<CStreamGraph>> import(const SChain& chain, const QStringList& cameras, QString* error);

    /// The graph that the scene document in \a file describes, with \a camera for the camera in it. On failure null
    /// and the reason in \a error.
    std::unique_ptr<CStreamGraph> load(const QString& file, const QString& camera, QString* error);

private:
    /// A scene, and the camera's node, the only one in it. Handlers of others may remove either.
    struct SCameraScene
    {
        bool isThere() const { return scene && camera; }

        QPointer<Plugin::Halvex::CNodeScene> scene;
        QPointer<Plugin::Halvex::CNodeBase> camera;
    };

    /// A chain that was checked.
    struct SSoundChain
    {
        const SChain& chain;
        std::vector<std::size_t> connections; ///< For each camera.
    };

    std::vector<SSoundChain> check(const std::vector<SChain>& chains, const QStringList& cameras, QString* error);
    bool importInto(const SCameraScene& place, const SChain& chain, std::size_t connections,
                    std::map<Core::CId, QString>* labels);
    SCameraScene addCamera(const QString& camera);

    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
};

} // namespace Host
