// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/sources/CCameraSourceModel.h"

#include "TestFrame.h"
#include "support/BoundedWait.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QSignalSpy>
#include <QTest>

using namespace Host;
using namespace Plugin::Halvex;

class tst_CCameraSourceModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namedCameraIsUnique();
    void framesComeOutInTheModelsThread();
};

void tst_CCameraSourceModel::namedCameraIsUnique()
{
    CCameraSourceModel any;
    QVERIFY(!any.isUnique());
    QCOMPARE(int(any.getType()), 0);
    QCOMPARE(any.dataType(ENodePortType::Out, 0).name, QStringLiteral("VGR"));
    CCameraSourceModel named(QStringLiteral("left"));
    QVERIFY(named.isUnique());
    QCOMPARE(named.caption(), QStringLiteral("Camera: left"));
}

void tst_CCameraSourceModel::framesComeOutInTheModelsThread()
{
    CCameraSourceModel model;
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    QThread* thread = nullptr;
    const auto onUpdated = [&thread] { thread = QThread::currentThread(); };
    connect(&model, &CNodeDataModel::dataUpdated, &model, onUpdated, Qt::DirectConnection);
    const CNodeDataPtr frame = frameData();
    CNodeDataFlowProxy* proxy = model.getDataFlowProxy();
    CTestThread grabber([&] { proxy->setData(frame); });
    grabber.join();
    QCOMPARE(updated.count(), 0);
    QTRY_COMPARE(updated.count(), 1);
    QCOMPARE(thread, QThread::currentThread());
    QCOMPARE(model.outData(0), frame);
}

QTEST_GUILESS_MAIN(tst_CCameraSourceModel)
#include "tst_CCameraSourceModel.moc"
