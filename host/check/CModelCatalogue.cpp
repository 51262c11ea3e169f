// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/check/CModelCatalogue.h"

#include "host/base/Attempt.h"
#include "host/base/Shown.h"

#include <Halvex/scene/CNodeDataModelRegistry.h>

#include <algorithm>

namespace Host {

using namespace Plugin::Halvex;

PortTypes portTypes(const CNodeDataModel& model, ENodePortType side)
{
    PortTypes types;
    const unsigned count = model.nPorts(side);
    for (unsigned port = 0; port < count; ++port)
        types.push_back(model.dataType(side, NodePortIndex(port)));
    return types;
}

QStringList portNames(const CNodeDataModel& model, ENodePortType side)
{
    QStringList names;
    const unsigned count = model.nPorts(side);
    for (unsigned port = 0; port < count; ++port)
        names << model.portCaption(side, NodePortIndex(port));
    return names;
}

CModelCatalogue::CModelCatalogue(CNodeDataModelRegistry& registry)
    : m_registry(registry)
{
    for (const auto& entry : registry.registeredModelCreators())
        m_names << entry.first;
    m_names.sort();
}

std::unique_ptr<CNodeDataModel> CModelCatalogue::create(const QString& name, QString* error) const
{
    std::unique_ptr<CNodeDataModel> model;
    *error = attempt(tr("making %1").arg(shown(name)), [&] {
        model = m_registry.create(name);
        return true;
    });
    return model;
}

bool CModelCatalogue::converts(const QString& from, const QString& to) const
{
    return bool(m_registry.getTypeConverter({from, {}}, {to, {}}));
}

QString CModelCatalogue::modelBetween(const QString& from, const QString& to)
{
    if (!m_arePassagesFound)
        findPassages();
    m_arePassagesFound = true;
    const auto found = std::find_if(m_passages.begin(), m_passages.end(),
                                    [&](const SPassage& passage) { return passage.from == from && passage.to == to; });
    return found == m_passages.end() ? QString() : found->model;
}

void CModelCatalogue::findPassages()
{
    for (const QString& name : qAsConst(m_names)) {
        QString error;
        const auto model = create(name, &error);
        if (!model)
            continue;
        // One that throws is none to be put between others.
        attempt(QString(), [&] {
            const PortTypes inputs = portTypes(*model, ENodePortType::In);
            const PortTypes outputs = portTypes(*model, ENodePortType::Out);
            if (inputs.size() == 1 && !outputs.empty())
                m_passages.push_back({name, inputs.front().id, outputs.front().id});
            return true;
        });
    }
}

} // namespace Host
