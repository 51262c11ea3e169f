// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HostModels.h"

#include "host/models/CBlurModel.h"
#include "host/models/CCameraSourceModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CGrabResultConverter.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CHistogramModel.h"
#include "host/models/CImageData.h"
#include "host/models/CPngSinkModel.h"
#include "host/models/CThresholdModel.h"
#include "models/CGenericNodeDecouplerDataModel.h"
#include "scene/CNodeDataModelRegistry.h"

namespace Host {

namespace {

template <typename Model>
void registerOne(Plugin::Halvex::CNodeDataModelRegistry& registry, const QString& category)
{
    registry.registerModel([] { return std::make_unique<Model>(); }, category);
}

} // namespace

void registerHostModels(Plugin::Halvex::CNodeDataModelRegistry& registry)
{
    registerOne<CCameraSourceModel>(registry, QStringLiteral("Sources"));
    for (const auto registerFilter : {registerOne<CBlurModel>, registerOne<CThresholdModel>, registerOne<CEdgesModel>,
                                      registerOne<CHistogramModel>})
        registerFilter(registry, QStringLiteral("Filters"));
    registerOne<CPngSinkModel>(registry, QStringLiteral("Sinks"));
    registerOne<Plugin::Halvex::CGenericNodeDecouplerDataModel<CGrabResultData>>(registry, QStringLiteral("Tools"));
    registry.registerTypeConverter({CGrabResultData::dataType(), CImageData::dataType()}, CGrabResultConverter());
}

} // namespace Host
