// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestPlugin.h"

#include <QCoreApplication>
#include <QVariant>

#include <stdexcept>

CTestPlugin::CTestPlugin()
{
    tell("made");
}

CTestPlugin::~CTestPlugin()
{
    tell("gone");
}

bool CTestPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    return tell("initialize") && !manager.isNull();
}

bool CTestPlugin::extensionsInitialized()
{
    return tell("extensionsInitialized");
}

bool CTestPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    return tell("uninitialize") && !manager.isNull();
}

Core::Plugin::IPlugin::UninitializeMode CTestPlugin::aboutToUninitialize()
{
    tell("aboutToUninitialize");
    return UninitializeMode::Synchronous;
}

bool CTestPlugin::tell(const char* call)
{
    // Not a literal of this library: the text stays behind when it is unloaded.
    const QString text = QString::fromLatin1(TEST_PLUGIN_NAME ".") + QString::fromLatin1(call);
    qApp->setProperty("calls", qApp->property("calls").toStringList() << text);
    if (qApp->property("throwing").toStringList().contains(text))
        throw std::runtime_error("thrown by " + text.toStdString());
    return !qApp->property("failing").toStringList().contains(text);
}
