// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CPacketUnderruns.h"

#include <QTest>

using namespace Host;

class tst_CPacketUnderruns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingCame();
    void starvesBehindTheLastFrame();
    void framesThatGotABufferHalfway();
    void framesThatNeverCameAreNone();
    void framesThatWereReadLate();
    void cameraCountsAnew();
};

void tst_CPacketUnderruns::nothingCame()
{
    const CPacketUnderruns underruns(100);
    QCOMPARE(underruns.frames(0), quint64(0));
    QCOMPARE(underruns.frames(99), quint64(0));
    QCOMPARE(underruns.frames(300), quint64(3));
}

void tst_CPacketUnderruns::starvesBehindTheLastFrame()
{
    CPacketUnderruns underruns(195);
    underruns.add(7, true, 0);
    QCOMPARE(underruns.frames(19110), quint64(98));
}

void tst_CPacketUnderruns::framesThatGotABufferHalfway()
{
    CPacketUnderruns underruns(100);
    underruns.add(1, true, 0);
    underruns.add(5, false, 350);  // 2 to 4 had no buffer, and 50 packets of this one
    underruns.add(9, false, 700);  // 6 to 8 the same
    underruns.add(13, true, 1050); // 10 to 12 the same; its first half was sent again
    QCOMPARE(underruns.frames(1050), quint64(9));
    // What is lost from then on is only told by the packets.
    QCOMPARE(underruns.frames(1050 + 199), quint64(10));
    QCOMPARE(underruns.frames(1050 + 2000), quint64(29));
}

// Of 2 to 9 one found no buffer; the others got lost on their way.
void tst_CPacketUnderruns::framesThatNeverCameAreNone()
{
    CPacketUnderruns underruns(100);
    underruns.add(1, true, 0);
    underruns.add(10, true, 100);
    QCOMPARE(underruns.frames(100), quint64(1));
}

// They wait in a queue while those behind them find no buffer.
void tst_CPacketUnderruns::framesThatWereReadLate()
{
    CPacketUnderruns underruns(100);
    underruns.add(1, true, 2000);
    QCOMPARE(underruns.frames(2000), quint64(20));
    underruns.add(2, true, 2000);
    underruns.add(23, true, 2000);
    QCOMPARE(underruns.frames(2000), quint64(20));
}

void tst_CPacketUnderruns::cameraCountsAnew()
{
    CPacketUnderruns underruns(100);
    underruns.add(65535, true, 0);
    underruns.add(3, true, 200);
    underruns.add(4, true, 200);
    QCOMPARE(underruns.frames(200), quint64(2));
}

QTEST_GUILESS_MAIN(tst_CPacketUnderruns)
#include "tst_CPacketUnderruns.moc"
