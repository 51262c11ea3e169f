// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "host/check/SCheckOptions.h"
#include "host/check/SDocumentGraph.h"
#include "host/check/SFault.h"

#include <QByteArray>
#include <QCoreApplication>

#include <cstddef>
#include <vector>

namespace Plugin::Halvex {
class INodeService;
} // namespace Plugin::Halvex

namespace Host {

class IHostModels;

/**
 * Finds everything that is wrong with a chain or a scene, without running it.
 *
 * \code
 * SCheckOptions options;
 * options.cameras = QStringList{"fake"};
 * CDocumentCheck check(*nodeService, *models, options);
 * for (const SFault& fault : check.check(text))
 *     qInfo() << qPrintable(faultLine("chain.json", fault)); // "chain.json:3:14: error: $[2].name: ..."
 * \endcode
 *
 * An error is what a run refuses: it would come out as something else than the document says, or lack a branch. With
 * warnings alone a run does what the document says.
 *
 * Messages are in the user's language.
 *
 * The models of the document are made one by one, and go again; nothing is changed in the service.
 *
 * Threads: the host's main thread.
 */
class CDocumentCheck
{
    Q_DECLARE_TR_FUNCTIONS(Host::CDocumentCheck)

public:
    /// \a service and \a models outlive this object.
    CDocumentCheck(Plugin::Halvex::INodeService& service, const IHostModels& models, SCheckOptions options = {});
    ~CDocumentCheck();
    Q_DISABLE_COPY(CDocumentCheck)

    /// The faults of \a text, UTF-8, in its order. As often as you like, each time for another document.
    std::vector<SFault> check(const QByteArray& text) { return read(text, nullptr); }

    /// The same, with what the document says in \a result, as far as it could be read.
    std::vector<SFault> read(const QByteArray& text, SDocumentGraph* result);

    /// How many connections the chain that was checked last makes in the scene of the camera of that place in the
    /// options; 0 if the check ended before it came to them.
    std::size_t connections(int camera) const;

private:
    void addCaptions(SDocumentGraph* graph) const;

    Plugin::Halvex::INodeService& m_service;
    const IHostModels& m_models;
    const SCheckOptions m_options;
    std::vector<std::size_t> m_connections;
};

/// Whether a run refuses the document.
bool hasErrors(const std::vector<SFault>& faults);

} // namespace Host
