// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>
#include <Halvex/service/INodeService.h>

#include <QStringList>
#include <QThread>

#include <atomic>
#include <memory>

/// A plugin beside the library's, as a third party writes one: it links the library, finds the published service and
/// brings models of its own, TestSource, TestWorker and TestSink.
class CTestModelsPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "TestModels.json")

public:
    CTestModelsPlugin() = default;
    ~CTestModelsPlugin() override; ///< Ends the camera and the work.
    Q_DISABLE_COPY(CTestModelsPlugin)

    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    bool extensionsInitialized() override;
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

    /// What only those can ask for who link the library.
    Q_INVOKABLE QStringList categories() const;
    /// Qt's number for "CNodeScene*", as code compiled with the headers has it.
    Q_INVOKABLE int scenePointerType() const;
    /// Sends frames to a source from a thread of its own, whatever becomes of the source.
    Q_INVOKABLE void startCamera(QObject* source);
    /// How many frames came when the source was gone.
    Q_INVOKABLE int refusedFrames() const { return m_refusedFrames; }

private:
    Plugin::Halvex::INodeService* service() const;

    QWeakPointer<Core::Service::IServiceManager> m_manager;
    std::unique_ptr<QThread> m_camera;
    std::atomic<int> m_refusedFrames{0};
};
