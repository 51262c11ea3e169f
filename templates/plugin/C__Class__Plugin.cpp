#include "C__Class__Plugin.h"

#include "C__Class__Model.h"

#include <Halvex/Halvex.h>

using namespace Plugin::Halvex;

bool C__Class__Plugin::initialize(const QWeakPointer<Core::Service::IServiceManager>& manager)
{
    m_manager = manager; // other plugins' services need not be there yet
    return true;
}

bool C__Class__Plugin::extensionsInitialized()
{
    const auto manager = m_manager.toStrongRef();
    const auto service = manager ? manager->findService("Plugin::Halvex::INodeService") : nullptr;
    auto* const nodes = qobject_cast<INodeService*>(service.data());
    if (!nodes)
        return false;
    nodes->registry()->registerModel<C__Class__Model>(QString::fromLatin1("Filters"));
    return true;
}

bool C__Class__Plugin::uninitialize(const QWeakPointer<Core::Service::IServiceManager>&)
{
    return true; // nothing was published
}
