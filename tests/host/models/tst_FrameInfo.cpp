// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/FrameInfo.h"

#include "TestFrame.h"
#include "support/CTestData.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_FrameInfo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofAGrabResult();
    void ofSomebodyElsesGrabResult();
    void ofWhatIsNoFrame();
};

void tst_FrameInfo::ofAGrabResult()
{
    QCOMPARE(frameInfo(*frameData()).frameNumber, quint64(5));
}

void tst_FrameInfo::ofSomebodyElsesGrabResult()
{
    Veltra::SGrabResult result;
    result.frameNumber = 7;
    result.timestampNs = 9;
    const auto before = std::chrono::steady_clock::now();
    const SFrameInfo info = frameInfo(CVeltraGrabResultData(Veltra::CGrabResultPtr(std::move(result))));
    QCOMPARE(info.frameNumber, quint64(7));
    QCOMPARE(info.timestampNs, quint64(9));
    QVERIFY(info.grabbed >= before && info.grabbed <= std::chrono::steady_clock::now());
}

void tst_FrameInfo::ofWhatIsNoFrame()
{
    for (const SFrameInfo& info : {frameInfo(CVeltraGrabResultData()), frameInfo(CTestData())}) {
        QCOMPARE(info.frameNumber, quint64(0));
        QVERIFY(info.grabbed == std::chrono::steady_clock::time_point());
    }
}

QTEST_GUILESS_MAIN(tst_FrameInfo)
#include "tst_FrameInfo.moc"
