// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/HostModels.h"

#include "host/models/CBlurModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CGrabResultConverter.h"
#include "host/models/CHistogramModel.h"
#include "host/models/CImageData.h"
#include "host/models/CThresholdModel.h"
#include "host/models/CToImageModel.h"
#include "host/sinks/CPngSinkModel.h"
#include "host/sinks/CRawSinkModel.h"
#include "host/sinks/CVideoSinkModel.h"
#include "host/sources/CCameraSourceModel.h"

#include <Halvex/service/CVeltraGrabResultData.h>
#include <Halvex/service/INodeService.h>

namespace Host {

void registerHostModels(Plugin::Halvex::INodeService& service)
{
    const auto registry = service.registry();
    // The registry may outlive the plugin, in whose file the texts of literals lie. So it is with the models' names.
    const QString filters = QString::fromLatin1("Filters");
    registry->registerModel<CCameraSourceModel>(QString::fromLatin1("Sources"));
    registry->registerModel<CToImageModel>(filters);
    registry->registerModel<CBlurModel>(filters);
    registry->registerModel<CThresholdModel>(filters);
    registry->registerModel<CEdgesModel>(filters);
    registry->registerModel<CHistogramModel>(filters);
    const QString sinks = QString::fromLatin1("Sinks");
    registry->registerModel<CPngSinkModel>(sinks);
    registry->registerModel<CRawSinkModel>(sinks);
    registry->registerModel<CVideoSinkModel>(sinks);
    service.registerTypeConverter({Plugin::Halvex::CVeltraGrabResultData().type(), CImageData::dataType()},
                                  CGrabResultConverter());
}

} // namespace Host
