// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/PixelFormat.h"

#include <QTest>

#include <arv.h>

using namespace Host;

class tst_PixelFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names();
    void codeWithoutAName();
    void bitsInMemory();
};

void tst_PixelFormat::names()
{
    QCOMPARE(pixelFormatName(ARV_PIXEL_FORMAT_MONO_8), QStringLiteral("Mono8"));
    QCOMPARE(pixelFormatName(ARV_PIXEL_FORMAT_RGB_8_PACKED), QStringLiteral("RGB8"));
    QCOMPARE(pixelFormatName(ARV_PIXEL_FORMAT_BAYER_GB_8), QStringLiteral("BayerGB8"));
    QCOMPARE(pixelFormatName(ARV_PIXEL_FORMAT_BAYER_GB_12_PACKED), QStringLiteral("BayerGB12Packed"));
    QCOMPARE(pixelFormatName(0x010c0047), QStringLiteral("Mono12p"));
}

void tst_PixelFormat::codeWithoutAName()
{
    QCOMPARE(pixelFormatName(0x010c0001), QStringLiteral("0x010c0001"));
    QCOMPARE(pixelFormatName(0), QStringLiteral("0x00000000"));
}

void tst_PixelFormat::bitsInMemory()
{
    QCOMPARE(bitsPerPixel(ARV_PIXEL_FORMAT_MONO_8), 8);
    QCOMPARE(bitsPerPixel(ARV_PIXEL_FORMAT_MONO_12), 16);
    QCOMPARE(bitsPerPixel(ARV_PIXEL_FORMAT_MONO_12_PACKED), 12);
    QCOMPARE(bitsPerPixel(ARV_PIXEL_FORMAT_RGB_8_PACKED), 24);
}

QTEST_GUILESS_MAIN(tst_PixelFormat)
#include "tst_PixelFormat.moc"
