// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/DemoGraph.h"

#include "host/models/CBlurModel.h"
#include "host/models/CCameraSourceModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CHistogramModel.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/CThresholdModel.h"
#include "models/CGenericNodeDecouplerDataModel.h"
#include "scene/CNodeScene.h"

namespace Host {

using namespace Plugin::Halvex;

namespace {

void connectNodes(CNodeScene& scene, CNodeBase& from, CNodeBase& to)
{
    const SNodeDataType given = from.nodeDataModel()->dataType(ENodePortType::Out, 0);
    const SNodeDataType taken = to.nodeDataModel()->dataType(ENodePortType::In, 0);
    const auto connection = scene.createConnection(to, 0, from, 0, scene.registry().getTypeConverter(given, taken));
    Q_ASSERT(connection);
    Q_UNUSED(connection)
}

CNodeBase& addBehind(CNodeScene& scene, CNodeBase& from, std::unique_ptr<CNodeDataModel> model)
{
    CNodeBase& node = scene.createNode(std::move(model));
    connectNodes(scene, from, node);
    return node;
}

} // namespace

void addDemoGraph(CNodeScene& scene)
{
    const auto sink = [&scene](const char* name, CNodeBase& from) {
        addBehind(scene, from, std::make_unique<CPngSinkModel>(QString::fromLatin1(name)));
    };
    CNodeBase& camera = scene.createNode(std::make_unique<CCameraSourceModel>());
    sink("frames", camera);

    auto decoupler = std::make_unique<CGenericNodeDecouplerDataModel<CGrabResultData>>();
    decoupler->setFramesPerSecond(25.0);
    CNodeBase& preview = addBehind(scene, camera, std::move(decoupler));
    CNodeBase& blur = addBehind(scene, preview, std::make_unique<CBlurModel>());
    CNodeBase& threshold = addBehind(scene, blur, std::make_unique<CThresholdModel>());
    sink("threshold", threshold);
    sink("edges", addBehind(scene, threshold, std::make_unique<CEdgesModel>()));
    sink("histogram", addBehind(scene, preview, std::make_unique<CHistogramModel>()));
}

} // namespace Host
