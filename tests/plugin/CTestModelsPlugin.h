// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "platform/IPlugin.h"
#include "service/INodeService.h"

#include <QStringList>

/// A plugin beside the library's, as a third party writes one: it links the library, finds the published service and
/// brings models of its own, TestSource and TestSink.
class CTestModelsPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "TestModels.json")

public:
    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    bool extensionsInitialized() override;
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

    /// What only those can ask for who link the library.
    Q_INVOKABLE QStringList categories() const;
    /// Qt's number for "CNodeScene*", as code compiled with the headers has it.
    Q_INVOKABLE int scenePointerType() const;

private:
    Plugin::Halvex::INodeService* service() const;

    QWeakPointer<Core::Service::IServiceManager> m_manager;
};
