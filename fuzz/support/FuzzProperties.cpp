// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "support/FuzzProperties.h"

#include "support/CFuzzModel.h"
#include "support/CTestModel.h"
#include "support/SceneConsistency.h"
#include "support/SceneContent.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>

#include <cstdio>
#include <cstdlib>

using namespace Plugin::Halvex;

namespace {

void registerKind(CNodeDataModelRegistry& registry, const SFuzzModelKind& kind)
{
    registry.registerModel([kind] { return std::make_unique<CFuzzModel>(kind); }, QStringLiteral("Fuzz"));
}

} // namespace

void require(bool holds, const QString& what)
{
    if (holds)
        return;
    std::fprintf(stderr, "NOT TRUE: %s\n", qUtf8Printable(what));
    std::abort();
}

void registerFuzzModels(CNodeDataModelRegistry& registry)
{
    SFuzzModelKind filter;
    filter.name = QStringLiteral("Filter");
    SFuzzModelKind mixer;
    mixer.name = QStringLiteral("Mixer");
    mixer.inPorts = 3;
    mixer.outPorts = 2;
    SFuzzModelKind constant;
    constant.name = QStringLiteral("Constant");
    constant.inPorts = 0;
    constant.hasOutput = true;
    SFuzzModelKind unique;
    unique.name = QStringLiteral("Unique");
    unique.isUnique = true;
    for (const SFuzzModelKind& kind : {filter, mixer, constant, unique})
        registerKind(registry, kind);
    registry.registerModel([] { return std::make_unique<CTestModel>(1, 1, QStringLiteral("Plain")); },
                           QStringLiteral("Fuzz"));
    registry.registerModel<CGenericNodeDecouplerDataModel<CTestData>>(QStringLiteral("Tools"));
    registry.registerTypeConverter({CTestData::defaultType(), {QStringLiteral("Other data"), QString()}},
                                   [](CNodeDataPtr data) { return data; });
}

std::shared_ptr<CNodeDataModelRegistry> fuzzRegistry()
{
    static const auto shared = [] {
        auto registry = std::make_shared<CNodeDataModelRegistry>();
        registerFuzzModels(*registry);
        return registry;
    }();
    return shared;
}

void requireSoundness(const CNodeScene& scene)
{
    const QString inconsistency = inconsistencyOf(scene);
    require(inconsistency.isEmpty(), inconsistency);
}

void requireRoundTrip(const CNodeScene& scene)
{
    CNodeScene copy(fuzzRegistry(), nullptr, nullptr);
    copy.loadFromMemory(scene.saveToMemory());
    requireSoundness(copy);
    const QStringList before = contentOf(scene);
    const QStringList after = contentOf(copy);
    require(before == after, QStringLiteral("the same comes back:\n%1\n--- became\n%2")
                                 .arg(before.join(QLatin1Char('\n')), after.join(QLatin1Char('\n'))));
}

void requireNothingLeft()
{
    require(CFuzzModel::alive() == 0 && CTestModel::alive() == 0, QStringLiteral("no model is left"));
    require(CTestData::alive() == 0, QStringLiteral("no data is left"));
}
