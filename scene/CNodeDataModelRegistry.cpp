// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include "graph/support/Reports_p.h"

namespace Plugin::Halvex {

CNodeDataModelRegistry::CNodeDataModelRegistry()
    : m_creators(std::make_shared<std::unordered_map<QString, ModelCreator>>())
{
}

CNodeDataModelRegistry::CNodeDataModelRegistry(CNodeDataModelRegistry&& other) noexcept
    : CNodeDataModelRegistry()
{
    *this = std::move(other);
}

CNodeDataModelRegistry& CNodeDataModelRegistry::operator=(CNodeDataModelRegistry&& other) noexcept
{
    m_categoryOfModel = std::exchange(other.m_categoryOfModel, {});
    m_categories = std::exchange(other.m_categories, {});
    m_creators = std::exchange(other.m_creators, std::make_shared<std::unordered_map<QString, ModelCreator>>());
    m_converters = std::exchange(other.m_converters, {});
    return *this;
}

CNodeDataModelRegistry::~CNodeDataModelRegistry() = default;

std::unique_ptr<CNodeDataModel> CNodeDataModelRegistry::create(const QString& modelName)
{
    const auto creators = m_creators;
    const auto found = creators->find(modelName);
    return found == creators->end() ? nullptr : found->second();
}

const std::set<QString>& CNodeDataModelRegistry::categories() const
{
    return m_categories;
}

const std::unordered_map<QString, ModelCreator>& CNodeDataModelRegistry::registeredModelCreators() const
{
    return *m_creators;
}

const std::unordered_map<QString, QString>& CNodeDataModelRegistry::registeredModelsCategoryAssociation() const
{
    return m_categoryOfModel;
}

void CNodeDataModelRegistry::registerTypeConverter(const std::pair<SNodeDataType, SNodeDataType>& fromTo,
                                                   NodeDataConverter converter)
{
    m_converters[{fromTo.first.id, fromTo.second.id}] = std::move(converter);
}

NodeDataConverter CNodeDataModelRegistry::getTypeConverter(const SNodeDataType& from, const SNodeDataType& to) const
{
    const auto found = m_converters.find({from.id, to.id});
    return found == m_converters.end() ? NodeDataConverter() : found->second;
}

void CNodeDataModelRegistry::add(ModelCreator creator, const QString& category)
{
    std::unique_ptr<CNodeDataModel> prototype = creator();
    if (!prototype)
        return;
    const QString name = prototype->name();
    prototype.reset();

    if (m_creators->count(name) != 0) {
        warnOnce("A model named \"%\" is registered already, in \"%\"; the other one, in \"%\", is left out.", name,
                 m_categoryOfModel[name], category);
        return;
    }
    // The creator last: a registration that failed on the way can be done again.
    m_categories.insert(category);
    // Survives exchanged neighbours: only a lack of memory sees it.
    m_categoryOfModel[name] = category;
    m_creators->emplace(name, std::move(creator));
}

} // namespace Plugin::Halvex
