// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CFrameFeed.h"

#include "TestGrab.h"
#include "host/models/CGrabResultData.h"
#include "host/sources/CCameraSourceModel.h"

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CFrameFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsKeepsAndDelivers();
    void goesOnWithoutASource();
};

void tst_CFrameFeed::countsKeepsAndDelivers()
{
    CCameraSourceModel source("camera");
    CFrameFeed feed(source.dataEntry());
    QCOMPARE(feed.frames(), quint64(0));
    QVERIFY(!feed.newest());
    for (const quint64 number : {quint64(7), quint64(8)}) {
        CGrabThread::SFrame frame;
        frame.result = testGrab(number);
        feed.take(frame);
    }
    QCOMPARE(feed.frames(), quint64(2));
    QCOMPARE(feed.newest()->frameNumber, quint64(8));
    QTRY_VERIFY(source.outData(0));
    const auto data = source.outData(0).dynamicCast<CGrabResultData>();
    QVERIFY(data);
    QCOMPARE(data->info().frameNumber, quint64(8));
}

void tst_CFrameFeed::goesOnWithoutASource()
{
    auto source = std::make_unique<CCameraSourceModel>("camera");
    CFrameFeed feed(source->dataEntry());
    source.reset();
    CGrabThread::SFrame frame;
    frame.result = testGrab(1);
    feed.take(frame);
    QCOMPARE(feed.frames(), quint64(1));
}

QTEST_GUILESS_MAIN(tst_CFrameFeed)
#include "tst_CFrameFeed.moc"
