#pragma once

#include <Halvex/platform/IPlugin.h>

/// Brings the model "__Title__" into the registry of the host's node service.
class C__Class__Plugin : public Core::Plugin::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID HALVEX_PLUGIN_IID FILE "__Class__.json")

public:
    bool initialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;
    bool extensionsInitialized() override;
    bool uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager) override;

private:
    QWeakPointer<Core::Service::IServiceManager> m_manager;
};
