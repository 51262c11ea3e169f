// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/service/CHalvexPlugin.h>

#include "models/RemovedWork_p.h"

#include <Halvex/models/AWorkerNodeDataModel.h>
#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QtPlugin>

namespace Plugin::Halvex {

// The service is made where its class is known: only then does the shared pointer share its count with the guarded
// pointers to the object.
CHalvexPlugin::CHalvexPlugin()
    : ALocalizedPlugin(QStringLiteral("Halvex"))
    , m_service(new CNodeService(nullptr))
{
}

CHalvexPlugin::~CHalvexPlugin()
{
    // Survives removed statement: the pools' threads are waited for, too.
    m_service.reset();
    // What a thread pool runs for models that are gone is code of this library, to the last instruction.
    if (AWorkerNodeDataModel::waitForRemovedWork())
        // Survives number off by one: a while.
        RemovedWork::waitForThreads(30000);
}

bool CHalvexPlugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    qRegisterMetaType<NodePortIndex>("NodePortIndex");
    const auto strongManager = manager.toStrongRef();
    if (strongManager && m_service)
        strongManager->registerService(m_service);
    return true;
}

bool CHalvexPlugin::extensionsInitialized()
{
    using Decoupler = CGenericNodeDecouplerDataModel<CVeltraGrabResultData>;
    // No string literal for what a host may keep: that would point into the unloaded library.
    if (m_service)
        m_service->registry()->registerModel<Decoupler>(QString::fromLatin1("Tools"));
    return true;
}

bool CHalvexPlugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    const auto strongManager = manager.toStrongRef();
    if (strongManager && m_service)
        strongManager->unregisterService(m_service);
    m_service.reset();
    return true;
}

} // namespace Plugin::Halvex

// A host refuses a plugin whose metadata asks for a newer Qt than its own, or for more of the processor. moc writes
// what the build has; the library needs no more than this, and a test holds it to that. With Qt 6 it needs the Qt that
// it was built with.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#undef QT_VERSION_MINOR
#define QT_VERSION_MINOR 12
#define qPluginArchRequirements() 0
#endif
#include "moc_CHalvexPlugin.cpp" // NOLINT(bugprone-suspicious-include): the name is the build system's
