// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QByteArray>
#include <QString>

namespace Plugin::Halvex {
class INodeService;
}

namespace Host {

class IHostModels;
struct SDocumentFile;

/**
 * The scene document that the chain comes to: the service imports it into a scene of \a camera, and saves that. With an
 * empty \a camera the chain names one camera, or any, and the scene is that one's.
 *
 * On failure the reason in \a error: one line, or a line for each fault of the chain.
 */
QByteArray sceneOfChain(const SDocumentFile& chain, const QString& camera, Plugin::Halvex::INodeService& service,
                        const IHostModels& models, QString* error);

} // namespace Host
