// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <Halvex/platform/IPlugin.h>
#include <Halvex/platform/IService.h>
#include <Halvex/testing/ITestData.h>

#include <QSharedPointer>
#include <QWeakPointer>

/// Numbers, for halvex-check.
class CNumberService : public Core::Service::IService, public Plugin::Halvex::Testing::ITestData
{
    Q_OBJECT
    Q_INTERFACES(Plugin::Halvex::Testing::ITestData)

public:
    CNumberService()
        : IService(nullptr)
    {
    }

    Plugin::Halvex::CNodeDataPtr makeData(const Plugin::Halvex::SNodeDataType& type, int number) const override;
    QByteArray checksum(const Plugin::Halvex::CNodeData& data) const override;
};

/**
 * A plugin that makes the mistake which the environment variable HALVEX_TEST_MISTAKE names, or none.
 *
 * Its models do what no report of a check in the same process can tell of: they end the process, or never come back.
 * They are there with the mistakes "models" and "hangs".
 */
class CMistakenPlugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "MistakenPlugin.json")

public:
    CMistakenPlugin();

    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    bool extensionsInitialized() override;
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

private:
    QSharedPointer<Core::Service::IService> m_service;
    QWeakPointer<Core::Service::IServiceManager> m_manager;
};
