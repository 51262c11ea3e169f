// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/GrabResult.h"

#include "host/camera/PixelFormat.h"

#include <arv.h>

namespace Host {

namespace {

bool carriesImage(ArvBuffer* buffer)
{
    switch (arv_buffer_get_payload_type(buffer)) {
    case ARV_BUFFER_PAYLOAD_TYPE_IMAGE:
    case ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA:
        return true;
    case ARV_BUFFER_PAYLOAD_TYPE_MULTIPART:
        return arv_buffer_get_n_parts(buffer) > 0;
    default:
        return false;
    }
}

} // namespace

Veltra::SGrabResult grabResult(ArvBuffer* buffer)
{
    Veltra::SGrabResult result;
    if (arv_buffer_get_status(buffer) != ARV_BUFFER_STATUS_SUCCESS || !carriesImage(buffer))
        return result;

    const quint32 format = arv_buffer_get_image_pixel_format(buffer);
    gint xPadding = 0;
    gint yPadding = 0;
    arv_buffer_get_image_padding(buffer, &xPadding, &yPadding);
    result.pixels = static_cast<const std::byte*>(arv_buffer_get_image_data(buffer, &result.size));
    result.width = arv_buffer_get_image_width(buffer);
    result.height = arv_buffer_get_image_height(buffer);
    result.stride = (result.width * bitsPerPixel(format) + 7) / 8 + xPadding;
    result.pixelFormat = pixelFormatName(format);
    result.frameNumber = arv_buffer_get_frame_id(buffer);
    result.timestampNs = arv_buffer_get_timestamp(buffer);
    result.complete = result.pixels && result.width > 0 && result.height > 0 &&
                      result.size >= std::size_t(result.stride) * std::size_t(result.height);
    return result;
}

} // namespace Host
