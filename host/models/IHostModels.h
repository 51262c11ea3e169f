// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/models/ANodeDataModel.h>

#include <QObject>
#include <QString>

#include <memory>

namespace Host {

/**
 * What the program asks of the plugin with the host's models, beside what the registry of the node service makes by
 * name. The plugin publishes a service with this interface:
 *
 * \code
 * const auto service = manager.findService(qobject_interface_iid<IHostModels*>());
 * if (auto* models = qobject_cast<IHostModels*>(service.data()))
 *     nodeService->addNode(models->createCameraSource(QStringLiteral("fake")), info);
 * \endcode
 *
 * Threads: the host's main thread.
 */
class Q_DECL_EXPORT IHostModels
{
public:
    IHostModels() = default;
    virtual ~IHostModels() = default;
    Q_DISABLE_COPY(IHostModels)

    /// A unique source of camera frames with the unique name \a camera, an ASourceNodeDataModel.
    virtual std::unique_ptr<Plugin::Halvex::ANodeDataModel> createCameraSource(const QString& camera) const = 0;

    /// Whether frames of this pixel format, a GenICam name, can be made images.
    virtual bool supports(const QString& pixelFormat) const = 0;

    /// The version of OpenCV, which the models work with.
    virtual QString imageLibraryVersion() const = 0;
};

} // namespace Host

Q_DECLARE_INTERFACE(Host::IHostModels, "Host.IHostModels/1.1")
