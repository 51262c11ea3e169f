// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/window/CThreadWatch.h"

#include "SHostService.h"
#include "TestFrame.h"

#include <Halvex/models/ASinkNodeDataModel.h>
#include <Halvex/models/AWorkerNodeDataModel.h>

#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

// Takes its time, in the graph's thread, and then passes on what it got; a sink keeps it to itself.
class CSlowModel : public ANodeDataModel
{
public:
    CSlowModel(QString name, int milliseconds, bool isSink = false)
        : m_name(std::move(name))
        , m_milliseconds(milliseconds)
        , m_isSink(isSink)
    {
    }

    QString caption() override { return m_name; }
    QString name() override { return m_name; }
    unsigned int nPorts(ENodePortType side) const override
    {
        return side == ENodePortType::In || (side == ENodePortType::Out && !m_isSink) ? 1 : 0;
    }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    bool isUnique() override { return false; }
    void setInData(CNodeDataPtr data, NodePortIndex) override
    {
        m_data = data;
        if (!data)
            return;
        QThread::msleep(unsigned(m_milliseconds));
        if (!m_isSink)
            Q_EMIT dataUpdated(0);
    }
    CNodeDataPtr outData(NodePortIndex) override { return m_data; }

private:
    const QString m_name;
    const int m_milliseconds;
    const bool m_isSink;
    CNodeDataPtr m_data;
};

// Passes on what it got, from a thread of its own.
class CQuickWorker : public AWorkerNodeDataModel
{
public:
    QString caption() override { return name(); }
    QString name() override { return QStringLiteral("Worker"); }
    unsigned int nPorts(ENodePortType) const override { return 1; }
    SNodeDataType dataType(ENodePortType, NodePortIndex) const override { return CVeltraGrabResultData().type(); }
    bool isUnique() override { return false; }

protected:
    Work makeWork() const override
    {
        return [](const Inputs& inputs) { return inputs.front(); };
    }
};

// A camera, a filter and a sink in a row, and the one of them that is slow.
struct SWatched
{
    SWatched(int filterMs, int sinkMs)
    {
        const auto info = Core::AppCoreComponents::BaseInfoPtr::create();
        service.nodes.addNode(service.models.createCameraSource("camera"), info);
        scene = service.nodes.findSceneByInfo(info);
        watch.watch(*scene);
        CNodeBase& camera = *scene->nodes().begin()->second;
        CNodeBase& filter = scene->createNode(std::make_unique<CSlowModel>("Filter", filterMs));
        CNodeBase& sink = scene->createNode(std::make_unique<CSlowModel>("Sink", sinkMs, true));
        scene->createConnection(filter, 0, camera, 0, {});
        scene->createConnection(sink, 0, filter, 0, {});
    }

    void send() const { sourceIn(*scene)->dataEntry().setData(frameData()); }

    // The first one after a rest wakes the watch.
    void sendTwo() const
    {
        send();
        send();
    }

    SHostService service;
    CNodeScene* scene = nullptr;
    CThreadWatch watch{std::chrono::milliseconds(100)};
};

} // namespace

class tst_CThreadWatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slowModelIsNamed();
    void slowSinkIsAmongThoseNamed();
    void nobodyIsNamedWhileAllIsQuick();
    void whatIsNoModel();
    void workerIsNotNamed();
    void whoComesAfterALongEventIsNotNamed();
    void restsWhenNothingFlows();
};

void tst_CThreadWatch::slowModelIsNamed()
{
    const SWatched test(400, 0);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    test.sendTwo();
    QTRY_COMPARE(heldUp.count(), 1);
    const QString who = heldUp.first().at(0).toString();
    QVERIFY2(who.contains("Filter") && !who.contains("Camera"), qPrintable(who));
    const int milliseconds = heldUp.first().at(1).toInt();
    QVERIFY2(milliseconds >= 300 && milliseconds < 1500, qPrintable(QString::number(milliseconds)));
}

void tst_CThreadWatch::slowSinkIsAmongThoseNamed()
{
    const SWatched test(0, 400);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    test.sendTwo();
    QTRY_COMPARE(heldUp.count(), 1);
    QVERIFY(heldUp.first().at(0).toString().contains("Sink"));
}

void tst_CThreadWatch::nobodyIsNamedWhileAllIsQuick()
{
    const SWatched test(1, 1);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    QSignalSpy updates(sourceIn(*test.scene), &CNodeDataModel::dataUpdated);
    for (int i = 1; i <= 20; ++i) {
        test.send();
        QTRY_COMPARE(updates.count(), i);
    }
    QTRY_VERIFY(!test.watch.isBeating()); // all beats have come
    QVERIFY(heldUp.isEmpty());
}

void tst_CThreadWatch::whatIsNoModel()
{
    const SWatched test(0, 0);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    QSignalSpy updates(sourceIn(*test.scene), &CNodeDataModel::dataUpdated);
    test.send();
    QTRY_COMPARE(updates.count(), 1);
    QThread::msleep(400);
    QTRY_COMPARE(heldUp.count(), 1); // so a beat has come after the last sign
    heldUp.clear();
    QThread::msleep(400);
    QTRY_COMPARE(heldUp.count(), 1);
    QCOMPARE(heldUp.first().at(0).toString(), QString());
}

// What it does it does elsewhere.
void tst_CThreadWatch::workerIsNotNamed()
{
    const SWatched test(0, 0);
    CNodeDataModel* const source = sourceIn(*test.scene);
    CNodeBase& worker = test.scene->createNode(std::make_unique<CQuickWorker>());
    for (const auto& node : test.scene->nodes()) {
        if (node.second->nodeDataModel() == source)
            test.scene->createConnection(worker, 0, *node.second, 0, {});
    }
    connect(source, &CNodeDataModel::dataUpdated, this, [frames = 0]() mutable {
        if (++frames == 2)
            QThread::msleep(400); // the next sign is the worker's
    });
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    test.sendTwo();
    QTRY_VERIFY(!heldUp.isEmpty());
    QVERIFY2(!heldUp.first().at(0).toString().contains("Worker"), qPrintable(heldUp.first().at(0).toString()));
}

// As when the window draws a large graph while frames wait.
void tst_CThreadWatch::whoComesAfterALongEventIsNotNamed()
{
    const SWatched test(0, 0);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    test.send();
    QMetaObject::invokeMethod(
        this, [] { QThread::msleep(400); }, Qt::QueuedConnection);
    test.send();
    QTRY_COMPARE(heldUp.count(), 1);
    QCOMPARE(heldUp.first().at(0).toString(), QString());
}

void tst_CThreadWatch::restsWhenNothingFlows()
{
    const SWatched test(0, 0);
    QSignalSpy heldUp(&test.watch, &CThreadWatch::heldUp);
    test.send();
    QSignalSpy updates(sourceIn(*test.scene), &CNodeDataModel::dataUpdated);
    QTRY_COMPARE(updates.count(), 1);
    QTRY_VERIFY(!test.watch.isBeating());
    QThread::msleep(300); // of this the next sign tells nothing
    test.send();
    QTRY_COMPARE(updates.count(), 2);
    QTRY_VERIFY(!test.watch.isBeating());
    QVERIFY(heldUp.isEmpty());
}

QTEST_GUILESS_MAIN(tst_CThreadWatch)
#include "tst_CThreadWatch.moc"
