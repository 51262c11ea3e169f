// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/PixelFormat.h"

#include <QRegularExpression>
#include <QSet>
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
    void codesAgreeWithNames();
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

// A code begins with how many values a pixel has and how many bits it takes, so that a wrong name shows.
void tst_PixelFormat::codesAgreeWithNames()
{
    static const QRegularExpression noDigit("[^0-9]");
    QSet<QString> found;
    for (const quint32 kind : {0x01080000U, 0x010a0000U, 0x010c0000U, 0x01100000U, 0x02180000U, 0x02300000U}) {
        for (quint32 code = kind; code < kind + 0x200; ++code) {
            const QString name = pixelFormatName(code);
            if (name.startsWith("0x"))
                continue;
            found.insert(name);
            const int bits = QString(name).remove(noDigit).toInt();
            const int values = name.startsWith("RGB") || name.startsWith("BGR") ? 3 : 1;
            const int inMemory = name.endsWith("Packed") ? 12 : name.endsWith("p") || bits == 8 ? bits : 16;
            QVERIFY2(bitsPerPixel(code) == values * inMemory, qPrintable(name));
            QVERIFY2((code & 0x02000000U) != 0 ? values == 3 : values == 1, qPrintable(name));
        }
    }
    QCOMPARE(found.size(), pixelFormatNames().size());
}

QTEST_GUILESS_MAIN(tst_PixelFormat)
#include "tst_PixelFormat.moc"
