// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CHostModelService.h"

#include "host/models/CGrabResultConverter.h"
#include "host/sources/CCameraSourceModel.h"

#include <opencv2/core/utility.hpp>

namespace Host {

CHostModelService::CHostModelService()
    : IService(nullptr)
{
}

std::unique_ptr<Plugin::Halvex::ANodeDataModel> CHostModelService::createCameraSource(const QString& camera) const
{
    return std::make_unique<CCameraSourceModel>(camera);
}

bool CHostModelService::supports(const QString& pixelFormat) const
{
    return CGrabResultConverter::supports(pixelFormat);
}

QString CHostModelService::imageLibraryVersion() const
{
    return QString::fromStdString(cv::getVersionString());
}

} // namespace Host
