// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>
#include <Halvex/platform/IService.h>

#include <QSharedPointer>

/**
 * A plugin that tells what is called: it appends "name.call" to the property "calls" of the application object, and
 * "name.made" and "name.gone" when it is made and destroyed.
 *
 * What a call does beyond that is said by the application's properties, lists of such texts: a call in "failing" fails
 * and one in "throwing" throws; initialize() in "publishing" publishes a service, which tells "name.service gone";
 * extensionsInitialized() in "keeping" keeps the node service for good; uninitialize() in "posting" posts a call that
 * tells "name.posted", and the deletion of such a service.
 */
class CTestPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID TEST_PLUGIN_IID FILE "TestPlugin.json")

public:
    CTestPlugin();
    ~CTestPlugin() override;

    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    bool extensionsInitialized() override;
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    UninitializeMode aboutToUninitialize() override;

private:
    QSharedPointer<Core::Service::IService> m_kept;
    QWeakPointer<Core::Service::IServiceManager> m_manager;
};
