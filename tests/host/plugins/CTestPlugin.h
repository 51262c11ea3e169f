// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include "platform/IPlugin.h"

/**
 * A plugin that tells what is called: it appends "name.call" to the property "calls" of the application object, and
 * "name.made" and "name.gone" when it is made and destroyed.
 *
 * A call that stands in the application's property "failing" fails, one that stands in "throwing" throws.
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
    static bool tell(const char* call);
};
