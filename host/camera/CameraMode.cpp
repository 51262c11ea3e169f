// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CameraMode.h"

#include "host/camera/CGLibError.h"

#include <arv.h>

#include <cstring>

namespace Host {

bool isOn(ArvCamera* camera, const char* mode)
{
    CGLibError error;
    ArvDevice* const device = arv_camera_get_device(camera);
    const char* const value = arv_device_get_feature(device, mode)
                                  ? arv_device_get_string_feature_value(device, mode, error.slot())
                                  : nullptr;
    return value && std::strcmp(value, "On") == 0;
}

bool waitsForTrigger(ArvCamera* camera)
{
    return isOn(camera, "TriggerMode");
}

} // namespace Host
