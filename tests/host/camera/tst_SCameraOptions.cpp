// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/SCameraOptions.h"

#include <QTest>

using namespace Host;

class tst_SCameraOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void camerasThatAreBuiltIn();
    void camerasThatAreNot();
};

void tst_SCameraOptions::camerasThatAreBuiltIn()
{
    for (const char* address : {"fake", "fake-1", "fake-20"})
        QVERIFY2(SCameraOptions::isFake(address), address);
}

void tst_SCameraOptions::camerasThatAreNot()
{
    for (const char* address : {"", "Fake", "fake-", "fake-0", "fake-01", "fake-1a", "fake1", "a fake", "10.0.0.2"})
        QVERIFY2(!SCameraOptions::isFake(address), address);
}

QTEST_GUILESS_MAIN(tst_SCameraOptions)
#include "tst_SCameraOptions.moc"
