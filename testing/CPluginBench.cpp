// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "testing/CPluginBench_p.h"

#include "testing/Thrown_p.h"

#include <Halvex/service/CHalvexPlugin.h>
#include <Halvex/service/INodeService.h>

#include <QFileInfo>
#include <QJsonObject>

#include <algorithm>

namespace Plugin::Halvex::Testing {

namespace {

bool isTheLibrary(const QString& file)
{
    const QJsonObject about = metadataOf(file).value(QLatin1String("MetaData")).toObject();
    return about.value(QLatin1String("Name")).toString() == QLatin1String("Halvex");
}

bool liesInAFile(const QString& text)
{
    if (text.isEmpty())
        return false;
    auto& data = const_cast<QString&>(text).data_ptr();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return data->ref.isStatic();
#else
    return !data.isMutable();
#endif
}

} // namespace

QJsonObject metadataOf(const QString& file)
{
    return QPluginLoader(QFileInfo(file).absoluteFilePath()).metaData();
}

CPluginBench::CPluginBench(const QString& file, const QStringList& companions)
{
    if (!isTheLibrary(file)) {
        m_library = std::make_unique<CHalvexPlugin>();
        if (!bringUp(m_library.get()))
            return;
    }
    for (const QString& companion : companions) {
        if (!load(companion) || !bringUp(m_loaded.back()->plugin()))
            return;
    }
    if (!load(file))
        return;
    m_servicesBefore = m_services->size();
    if (const auto before = registry()) {
        for (const auto& [name, creator] : before->registeredModelCreators())
            m_modelsBefore << name;
    }
    m_isUp = bringUp(m_loaded.back()->plugin());
}

CPluginBench::~CPluginBench()
{
    shutDown();
    std::for_each(m_up.rbegin(), m_up.rend(), [this](auto* plugin) { takeDown(*plugin); });
    m_services->clear(); // what was not withdrawn is code that goes now
    while (!m_loaded.empty())
        m_loaded.pop_back();
}

std::map<QString, ModelCreator> CPluginBench::models() const
{
    std::map<QString, ModelCreator> models;
    const auto known = registry();
    if (!known)
        return models;
    for (const auto& [name, creator] : known->registeredModelCreators()) {
        if (!m_modelsBefore.contains(name))
            models.emplace(name, creator);
    }
    return models;
}

std::shared_ptr<CNodeDataModelRegistry> CPluginBench::registry() const
{
    const auto service = m_services->findService(INodeService::staticMetaObject.className());
    const auto* const nodes = qobject_cast<INodeService*>(service.data());
    return nodes ? nodes->registry() : nullptr;
}

QString CPluginBench::textOfTheFile() const
{
    const auto known = registry();
    if (!known)
        return {};
    for (const auto& [name, category] : known->registeredModelsCategoryAssociation()) {
        if (m_modelsBefore.contains(name))
            continue;
        if (liesInAFile(name))
            return QStringLiteral("the name \"%1\"").arg(name);
        if (liesInAFile(category))
            return QStringLiteral("the category \"%1\"").arg(category);
    }
    return {};
}

std::size_t CPluginBench::shutDown()
{
    if (!m_isUp)
        return 0;
    m_isUp = false;
    Core::Plugin::IPlugin* const plugin = m_up.back();
    m_up.pop_back();
    takeDown(*plugin);
    return m_services->size() > m_servicesBefore ? m_services->size() - m_servicesBefore : 0;
}

bool CPluginBench::bringUp(Core::Plugin::IPlugin* plugin)
{
    bool isUp = false;
    QString thrown = thrownBy([&] { isUp = plugin->initialize(m_services); });
    m_up.push_back(plugin);
    if (!isUp) {
        m_error = QStringLiteral("initialize() %1").arg(thrown.isEmpty() ? QStringLiteral("returned false") : thrown);
        return false;
    }
    isUp = false;
    thrown = thrownBy([&] { isUp = plugin->extensionsInitialized(); });
    if (!isUp)
        m_error = QStringLiteral("extensionsInitialized() %1")
                      .arg(thrown.isEmpty() ? QStringLiteral("returned false") : thrown);
    return isUp;
}

bool CPluginBench::load(const QString& file)
{
    m_loaded.push_back(std::make_unique<CLoadedPlugin>(file));
    m_error = m_loaded.back()->error();
    return m_loaded.back()->plugin() != nullptr;
}

void CPluginBench::takeDown(Core::Plugin::IPlugin& plugin)
{
    thrownBy([&] {
        plugin.aboutToUninitialize();
        plugin.uninitialize(m_services);
    });
}

} // namespace Plugin::Halvex::Testing
