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

// The formats that a converter may know, by the codes of GenICam's naming convention (PFNC). Aravis lacks some of them,
// and has no way from a code to its name. Its RGB and BGR codes named PACKED are of formats that are not packed.
const SFormat formats[] = {
    {ARV_PIXEL_FORMAT_MONO_8, "Mono8"},
    {ARV_PIXEL_FORMAT_MONO_10, "Mono10"},
    {ARV_PIXEL_FORMAT_MONO_12, "Mono12"},
    {ARV_PIXEL_FORMAT_MONO_14, "Mono14"},
    {ARV_PIXEL_FORMAT_MONO_16, "Mono16"},
    {0x010a0046, "Mono10p"},
    {0x010c0047, "Mono12p"},
    {ARV_PIXEL_FORMAT_MONO_10_PACKED, "Mono10Packed"},
    {ARV_PIXEL_FORMAT_MONO_12_PACKED, "Mono12Packed"},
    {ARV_PIXEL_FORMAT_BAYER_GR_8, "BayerGR8"},
    {ARV_PIXEL_FORMAT_BAYER_GR_10, "BayerGR10"},
    {ARV_PIXEL_FORMAT_BAYER_GR_12, "BayerGR12"},
    {0x01100109, "BayerGR14"},
    {ARV_PIXEL_FORMAT_BAYER_GR_16, "BayerGR16"},
    {ARV_PIXEL_FORMAT_BAYER_GR_10P, "BayerGR10p"},
    {ARV_PIXEL_FORMAT_BAYER_GR_12P, "BayerGR12p"},
    {ARV_PIXEL_FORMAT_BAYER_GR_10_PACKED, "BayerGR10Packed"},
    {ARV_PIXEL_FORMAT_BAYER_GR_12_PACKED, "BayerGR12Packed"},
    {ARV_PIXEL_FORMAT_BAYER_RG_8, "BayerRG8"},
    {ARV_PIXEL_FORMAT_BAYER_RG_10, "BayerRG10"},
    {ARV_PIXEL_FORMAT_BAYER_RG_12, "BayerRG12"},
    {0x0110010a, "BayerRG14"},
    {ARV_PIXEL_FORMAT_BAYER_RG_16, "BayerRG16"},
    {ARV_PIXEL_FORMAT_BAYER_RG_10P, "BayerRG10p"},
    {ARV_PIXEL_FORMAT_BAYER_RG_12P, "BayerRG12p"},
    {ARV_PIXEL_FORMAT_BAYER_RG_10_PACKED, "BayerRG10Packed"},
    {ARV_PIXEL_FORMAT_BAYER_RG_12_PACKED, "BayerRG12Packed"},
    {ARV_PIXEL_FORMAT_BAYER_GB_8, "BayerGB8"},
    {ARV_PIXEL_FORMAT_BAYER_GB_10, "BayerGB10"},
    {ARV_PIXEL_FORMAT_BAYER_GB_12, "BayerGB12"},
    {0x0110010b, "BayerGB14"},
    {ARV_PIXEL_FORMAT_BAYER_GB_16, "BayerGB16"},
    {ARV_PIXEL_FORMAT_BAYER_GB_10P, "BayerGB10p"},
    {ARV_PIXEL_FORMAT_BAYER_GB_12P, "BayerGB12p"},
    {ARV_PIXEL_FORMAT_BAYER_GB_10_PACKED, "BayerGB10Packed"},
    {ARV_PIXEL_FORMAT_BAYER_GB_12_PACKED, "BayerGB12Packed"},
    {ARV_PIXEL_FORMAT_BAYER_BG_8, "BayerBG8"},
    {ARV_PIXEL_FORMAT_BAYER_BG_10, "BayerBG10"},
    {ARV_PIXEL_FORMAT_BAYER_BG_12, "BayerBG12"},
    {0x0110010c, "BayerBG14"},
    {ARV_PIXEL_FORMAT_BAYER_BG_16, "BayerBG16"},
    {ARV_PIXEL_FORMAT_BAYER_BG_10P, "BayerBG10p"},
    {ARV_PIXEL_FORMAT_BAYER_BG_12P, "BayerBG12p"},
    {ARV_PIXEL_FORMAT_BAYER_BG_10_PACKED, "BayerBG10Packed"},
    {ARV_PIXEL_FORMAT_BAYER_BG_12_PACKED, "BayerBG12Packed"},
    {ARV_PIXEL_FORMAT_RGB_8_PACKED, "RGB8"},
    {ARV_PIXEL_FORMAT_BGR_8_PACKED, "BGR8"},
    {ARV_PIXEL_FORMAT_RGB_10_PACKED, "RGB10"},
    {ARV_PIXEL_FORMAT_RGB_12_PACKED, "RGB12"},
    {0x0230005e, "RGB14"},
    {0x02300033, "RGB16"},
    {ARV_PIXEL_FORMAT_BGR_10_PACKED, "BGR10"},
    {ARV_PIXEL_FORMAT_BGR_12_PACKED, "BGR12"},
    {0x0230004a, "BGR14"},
    {0x0230004b, "BGR16"},
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
