// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// A host that does not link the library: it loads it as a plugin, then a plugin with models, builds a graph by the
// service's virtual operations, and unloads both.
//
//   loading_host <libHalvex.so> <libExampleModels.so>

#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/platform/IPlugin.h>
#include <Halvex/platform/IServiceManager.h>
#include <Halvex/service/INodeService.h>

#include <QCoreApplication>
#include <QPluginLoader>

#include <cstdio>
#include <memory>
#include <utility>

using Plugin::Halvex::ANodeDataModel;
using Plugin::Halvex::INodeService;

namespace {

class CServices : public Core::Service::IServiceManager
{
public:
    void registerService(const QSharedPointer<Core::Service::IService>& service) override { m_services << service; }
    void unregisterService(const QSharedPointer<Core::Service::IService>& service) override
    {
        m_services.removeAll(service);
    }
    QSharedPointer<Core::Service::IService> findService(const char* className) const override
    {
        for (const auto& service : m_services) {
            if (service->inherits(className))
                return service;
        }
        return {};
    }

private:
    QList<QSharedPointer<Core::Service::IService>> m_services;
};

/// The plugin in that file; ends the program if there is none.
Core::Plugin::IPlugin& load(QPluginLoader& loader)
{
    loader.setLoadHints({}); // or Qt keeps the file in memory, whatever is unloaded
    auto* const plugin = dynamic_cast<Core::Plugin::IPlugin*>(loader.instance());
    if (!plugin)
        qFatal("%s", qPrintable(loader.errorString()));
    return *plugin;
}

/// A model from a plugin, in a node; ends the program if none of that name is registered.
ANodeDataModel* addNode(INodeService& service, const char* modelName)
{
    auto model = service.createModel(QString::fromLatin1(modelName));
    if (!model)
        qFatal("There is no model '%s'", modelName);
    ANodeDataModel* const added = model.get();
    service.addNode(std::move(model), {});
    return added;
}

void run(INodeService& service)
{
    ANodeDataModel* const numbers = addNode(service, "Example Numbers"); // first: a unique source makes the scene
    ANodeDataModel* const twice = addNode(service, "Example Double");
    ANodeDataModel* const sum = addNode(service, "Example Sum");
    service.connectModels(twice, 0, numbers, 0); // the consumer comes first
    service.connectModels(sum, 0, twice, 0);

    for (const int value : {1, 2, 3})
        QMetaObject::invokeMethod(numbers, "send", Q_ARG(int, value));
    std::printf("the sum is %d\n", sum->property("sum").toInt());
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        qFatal("usage: loading_host <libHalvex.so> <libExampleModels.so>");
    QPluginLoader library(QString::fromLocal8Bit(argv[1]));
    QPluginLoader models(QString::fromLocal8Bit(argv[2]));
    const auto manager = QSharedPointer<CServices>::create();

    // All are initialized before any is told so: a plugin may need another one's service.
    const bool isUp = load(library).initialize(manager) && load(models).initialize(manager) &&
                      load(library).extensionsInitialized() && load(models).extensionsInitialized();
    if (isUp) {
        // Without the library's meta-object, inherits() has told what it is.
        const auto service = manager->findService("Plugin::Halvex::INodeService");
        run(*static_cast<INodeService*>(service.data()));
    }

    load(models).uninitialize(manager);
    load(library).uninitialize(manager); // the scenes go
    // What links the library goes before it.
    const bool isUnloaded = models.unload() && library.unload();
    std::puts(isUnloaded ? "unloaded" : "still loaded");
    return isUp && isUnloaded ? 0 : 1;
}
