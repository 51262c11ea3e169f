// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CDemoGraph.h"

#include "host/models/CBlurModel.h"
#include "host/models/CCameraSourceModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CHistogramModel.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/CThresholdModel.h"
#include "host/models/HostModels.h"
#include "models/CNodeDataFlowProxy.h"

namespace Host {

using namespace Plugin::Halvex;

namespace {

std::shared_ptr<CNodeDataModelRegistry> makeRegistry()
{
    auto registry = std::make_shared<CNodeDataModelRegistry>();
    registerHostModels(*registry);
    return registry;
}

} // namespace

CDemoGraph::CDemoGraph(const QString& cameraName)
    : m_scene(makeRegistry(), {}, nullptr)
{
    CNodeBase& camera = addSource(cameraName);
    addSink(QStringLiteral("frames"), camera);
    CNodeBase& threshold = addFilter(CThresholdModel::modelName(), addFilter(CBlurModel::modelName(), camera));
    addSink(QStringLiteral("threshold"), threshold);
    addSink(QStringLiteral("edges"), addFilter(CEdgesModel::modelName(), threshold));
    addSink(QStringLiteral("histogram"), addFilter(CHistogramModel::modelName(), camera));
}

CNodeBase& CDemoGraph::addSource(const QString& cameraName)
{
    auto model = std::make_unique<CCameraSourceModel>(cameraName);
    m_entry = model->getDataFlowProxy();
    return m_scene.createNode(std::move(model));
}

CNodeBase& CDemoGraph::addFilter(const QString& modelName, CNodeBase& from)
{
    CNodeBase& node = m_scene.createNode(m_scene.registry().create(modelName));
    connectNodes(from, node);
    return node;
}

void CDemoGraph::addSink(const QString& name, CNodeBase& from)
{
    auto model = std::make_unique<CPngSinkModel>(name);
    m_sinks.push_back(model.get());
    connectNodes(from, m_scene.createNode(std::move(model)));
}

void CDemoGraph::connectNodes(CNodeBase& from, CNodeBase& to)
{
    const SNodeDataType given = from.nodeDataModel()->dataType(ENodePortType::Out, 0);
    const SNodeDataType taken = to.nodeDataModel()->dataType(ENodePortType::In, 0);
    const auto connection = m_scene.createConnection(to, 0, from, 0, m_scene.registry().getTypeConverter(given, taken));
    Q_ASSERT(connection);
    Q_UNUSED(connection)
}

} // namespace Host
