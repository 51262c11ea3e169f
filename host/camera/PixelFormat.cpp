// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/PixelFormat.h"

#include <arv.h>

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

struct SFormat
{
    quint32 code;
    const char* name;
};

// The formats that a converter may know; the library has the codes but no way from a code to its name.
const SFormat formats[] = {
    {ARV_PIXEL_FORMAT_MONO_8, "Mono8"},        {ARV_PIXEL_FORMAT_MONO_10, "Mono10"},
    {ARV_PIXEL_FORMAT_MONO_12, "Mono12"},      {ARV_PIXEL_FORMAT_MONO_14, "Mono14"},
    {ARV_PIXEL_FORMAT_MONO_16, "Mono16"},      {ARV_PIXEL_FORMAT_BAYER_GR_8, "BayerGR8"},
    {ARV_PIXEL_FORMAT_BAYER_RG_8, "BayerRG8"}, {ARV_PIXEL_FORMAT_BAYER_GB_8, "BayerGB8"},
    {ARV_PIXEL_FORMAT_BAYER_BG_8, "BayerBG8"}, {ARV_PIXEL_FORMAT_RGB_8_PACKED, "RGB8"},
    {ARV_PIXEL_FORMAT_BGR_8_PACKED, "BGR8"},
};

} // namespace

QString pixelFormatName(quint32 code)
{
    const auto* found = std::find_if(std::begin(formats), std::end(formats),
                                     [code](const SFormat& format) { return format.code == code; });
    if (found != std::end(formats))
        return QString::fromLatin1(found->name);
    return QStringLiteral("0x%1").arg(code, 8, 16, QLatin1Char('0'));
}

QStringList pixelFormatNames()
{
    QStringList names;
    for (const SFormat& format : formats)
        names << QString::fromLatin1(format.name);
    return names;
}

int bitsPerPixel(quint32 code)
{
    return int(ARV_PIXEL_FORMAT_BIT_PER_PIXEL(code));
}

} // namespace Host
