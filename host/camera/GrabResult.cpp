// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/GrabResult.h"

#include "host/camera/PixelFormat.h"

#include <arv.h>

#include <limits>

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

// In bytes; 0 if no memory has such rows. What a packet says may be anything.
int strideOf(int width, int bitsPerPixel, int padding)
{
    if (width <= 0 || bitsPerPixel <= 0 || padding < 0)
        return 0;
    const qint64 stride = (qint64(width) * bitsPerPixel + 7) / 8 + padding;
    return stride <= std::numeric_limits<int>::max() ? int(stride) : 0;
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
    result.stride = strideOf(result.width, bitsPerPixel(format), xPadding);
    result.pixelFormat = pixelFormatName(format);
    result.frameNumber = arv_buffer_get_frame_id(buffer);
    result.timestampNs = arv_buffer_get_timestamp(buffer);
    result.complete = result.pixels && result.stride > 0 && result.height > 0 &&
                      quint64(result.size) >= quint64(result.stride) * quint64(result.height);
    return result;
}

} // namespace Host
