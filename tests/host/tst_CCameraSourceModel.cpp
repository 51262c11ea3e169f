// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/CCameraSourceModel.h"

#include "host/models/CGrabResultData.h"
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
    void portsAndNames();
    void namedCameraIsUnique();
    void framesComeOutInTheModelsThread();
};

void tst_CCameraSourceModel::portsAndNames()
{
    CCameraSourceModel model;
    QCOMPARE(model.name(), QStringLiteral("Camera Source"));
    QCOMPARE(model.caption(), QStringLiteral("Camera"));
    QCOMPARE(model.nPorts(ENodePortType::In), 0U);
    QCOMPARE(model.nPorts(ENodePortType::Out), 1U);
    QCOMPARE(model.dataType(ENodePortType::Out, 0).id, QStringLiteral("Veltra Grab Result"));
    QCOMPARE(model.dataType(ENodePortType::Out, 0).name, QStringLiteral("VGR"));
    QVERIFY(!model.isUnique());
    QCOMPARE(int(model.getType()), 0);
    QVERIFY(!model.outData(0));
}

void tst_CCameraSourceModel::namedCameraIsUnique()
{
    CCameraSourceModel model(QStringLiteral("left"));
    QVERIFY(model.isUnique());
    QCOMPARE(model.caption(), QStringLiteral("Camera: left"));
}

void tst_CCameraSourceModel::framesComeOutInTheModelsThread()
{
    CCameraSourceModel model;
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    QThread* thread = nullptr;
    connect(
        &model, &CNodeDataModel::dataUpdated, &model, [&] { thread = QThread::currentThread(); }, Qt::DirectConnection);
    const CNodeDataPtr frame = QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(), SFrameInfo());
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
