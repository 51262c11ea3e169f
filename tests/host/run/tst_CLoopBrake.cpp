// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CLoopBrake.h"

#include "TestFrame.h"

#include <Halvex/models/CGenericNodeDecouplerDataModel.h>
#include <Halvex/service/CVeltraGrabResultData.h>

#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

using Decoupler = CGenericNodeDecouplerDataModel<CVeltraGrabResultData>;

} // namespace

class tst_CLoopBrake : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachLetsOutWhatItHasOnce();
    void withoutLoops();
};

void tst_CLoopBrake::eachLetsOutWhatItHasOnce()
{
    Decoupler first;
    Decoupler empty;
    Decoupler second;
    Decoupler other;
    CLoopBrake brake;
    for (Decoupler* decoupler : {&first, &empty, &second})
        brake.add(*decoupler);
    for (Decoupler* decoupler : {&first, &second}) {
        // What it gives out comes back to it.
        connect(decoupler, &CNodeDataModel::dataUpdated, this, [decoupler, watching = &brake] {
            decoupler->setInData(decoupler->outData(0), 0);
            watching->noteDelivery(*decoupler);
        });
    }
    second.setFramesPerSecond(50.0);
    QVERIFY(!brake.releaseNext());
    brake.hold();
    QVERIFY(brake.isHolding(first) && brake.isHolding(second));
    QVERIFY(brake.isOnLoop(first) && !brake.isOnLoop(other) && !brake.isHolding(other));
    QCOMPARE(brake.framesPerSecond(first), 25.0);
    QCOMPARE(brake.framesPerSecond(second), 50.0);
    first.setInData(frameData(), 0);
    second.setInData(frameData(), 0);

    for (Decoupler* decoupler : {&first, &second}) {
        QVERIFY(brake.releaseNext());
        QVERIFY(!brake.isHolding(*decoupler));
        const auto holds = [&brake, decoupler] { return brake.isHolding(*decoupler); };
        QTRY_VERIFY(holds());
        QVERIFY(decoupler->statistics().emitted > 0);
        const auto rests = [decoupler] { return decoupler->statistics().pending == 1; };
        QTRY_VERIFY(rests());
    }
    QVERIFY(!brake.releaseNext());
    QCOMPARE(empty.statistics().emitted, quint64(0));
}

void tst_CLoopBrake::withoutLoops()
{
    CLoopBrake brake;
    brake.hold();
    QVERIFY(!brake.releaseNext());
    const Decoupler decoupler;
    QCOMPARE(brake.framesPerSecond(decoupler), 25.0);
}

QTEST_GUILESS_MAIN(tst_CLoopBrake)
#include "tst_CLoopBrake.moc"
