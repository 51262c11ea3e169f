// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "CTestPlugin.h"

#include <QCoreApplication>
#include <QVariant>

#include <stdexcept>

namespace {

// Not a literal of this library: the text stays behind when it is unloaded.
QString fullName(const char* call)
{
    return QString::fromLatin1(TEST_PLUGIN_NAME ".") + QString::fromLatin1(call);
}

bool isIn(const char* property, const char* call)
{
    return qApp->property(property).toStringList().contains(fullName(call));
}

void note(const char* call)
{
    qApp->setProperty("calls", qApp->property("calls").toStringList() << fullName(call));
}

bool tell(const char* call)
{
    note(call);
    if (isIn("throwing", call))
        throw std::runtime_error("thrown by " + fullName(call).toStdString());
    return !isIn("failing", call);
}

// Its destructor is code of this plugin.
class CTestService : public Core::Service::IService
{
public:
    CTestService()
        : IService(nullptr)
    {
    }
    ~CTestService() override { note("service gone"); }
};

} // namespace

CTestPlugin::CTestPlugin()
{
    tell("made");
}

CTestPlugin::~CTestPlugin()
{
    note("gone");
}

bool CTestPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager;
    const auto services = manager.toStrongRef();
    if (services && isIn("publishing", "initialize"))
        services->registerService(QSharedPointer<CTestService>::create());
    return tell("initialize") && services;
}

bool CTestPlugin::extensionsInitialized()
{
    const auto services = m_manager.toStrongRef();
    if (services && isIn("keeping", "extensionsInitialized"))
        m_kept = services->findService("Plugin::Halvex::INodeService");
    return tell("extensionsInitialized");
}

bool CTestPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    if (isIn("posting", "uninitialize")) {
        QMetaObject::invokeMethod(
            this, [] { note("posted"); }, Qt::QueuedConnection);
        (new CTestService)->deleteLater();
    }
    return tell("uninitialize") && !manager.isNull();
}

Core::Plugin::IPlugin::UninitializeMode CTestPlugin::aboutToUninitialize()
{
    tell("aboutToUninitialize");
    return UninitializeMode::Synchronous;
}

#include "CTestPlugin.moc"
