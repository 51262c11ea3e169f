// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Look-ups in a service of ten scenes: whether they depend on the number of nodes.

#include "CFrame.h"
#include "Measuring.h"

#include <Halvex/models/ANodeDataModel.h>
#include <Halvex/scene/CNodeScene.h>
#include <Halvex/service/CNodeService.h>

using namespace Plugin::Halvex;
using Core::AppCoreComponents::BaseInfoPtr;
using Core::AppCoreComponents::IBaseInfo;

namespace {

/// A source that makes a scene, or any other node.
class CServiceModel : public ANodeDataModel
{
public:
    explicit CServiceModel(bool makesScene)
        : m_makesScene(makesScene)
    {
        if (makesScene)
            m_modelType = ENodeDataModelType::Source;
    }

    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Service model"); }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CFrame().type(); }
    void setInData(CNodeDataPtr, NodePortIndex) override {}
    CNodeDataPtr outData(NodePortIndex) override { return {}; }
    bool isUnique() override { return m_makesScene; }

private:
    bool m_makesScene;
};

/// Ten scenes of as many nodes, and some nodes of each to look for, with the information objects of their scenes.
class CFilledService
{
public:
    explicit CFilledService(int nodesPerScene)
        : service(nullptr)
    {
        constexpr int scenes = 10;
        for (int scene = 0; scene < scenes; ++scene) {
            const BaseInfoPtr info(new IBaseInfo);
            for (int node = 0; node < nodesPerScene; ++node) {
                auto model = std::make_unique<CServiceModel>(node == 0);
                ANodeDataModel* const added = model.get();
                const Core::CId id = service.addNode(std::move(model), info);
                if (node % (nodesPerScene / 10) == 0) {
                    ids.push_back(id);
                    models.push_back(added);
                    infos.push_back(info);
                }
            }
        }
    }

    CNodeService service;
    std::vector<Core::CId> ids;
    std::vector<ANodeDataModel*> models;
    std::vector<BaseInfoPtr> infos;
};

template <typename LookUp>
std::string addLookUp(const std::string& name, int nodesPerScene, const LookUp& lookUp)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        CFilledService filled(nodesPerScene);
        for ([[maybe_unused]] auto iteration : state)
            lookUp(filled);
        setItems(state, double(filled.ids.size()));
    });
    return name;
}

void findNodes(CFilledService& filled)
{
    for (const Core::CId& id : filled.ids)
        benchmark::DoNotOptimize(filled.service.findNode(id));
}

void findNodesByModels(CFilledService& filled)
{
    for (ANodeDataModel* model : filled.models)
        benchmark::DoNotOptimize(filled.service.findNodeByModel(model));
}

void findScenesByInfo(CFilledService& filled)
{
    for (const BaseInfoPtr& info : filled.infos)
        benchmark::DoNotOptimize(filled.service.findSceneByInfo(info));
}

template <typename LookUp>
void compareSizes(CRatioTable& table, const std::string& work, int largest, const LookUp& lookUp)
{
    const int few = 1000;
    const int many = std::min(largest, 10000);
    const std::string fewName = addLookUp(work + "/" + std::to_string(few), few, lookUp);
    const std::string manyName = many == few ? fewName : addLookUp(work + "/" + std::to_string(many), many, lookUp);
    table.add({work + " in 10 scenes of " + std::to_string(many) + ", against " + std::to_string(few),
               manyName,
               {fewName},
               1.5});
}

} // namespace

void registerService(CRatioTable& table, int largest)
{
    compareSizes(table, "findNode", largest, findNodes);
    compareSizes(table, "findNodeByModel", largest, findNodesByModels);
    compareSizes(table, "findSceneByInfo", largest, findScenesByInfo);
}
