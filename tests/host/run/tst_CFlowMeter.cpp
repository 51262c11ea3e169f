// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/run/CFlowMeter.h"

#include "SHostService.h"
#include "TestFrame.h"
#include "host/models/CGrabResultConverter.h"
#include "host/models/CToImageModel.h"
#include "host/sinks/CPngSinkModel.h"
#include "host/sources/CCameraSourceModel.h"
#include "support/CTestScene.h"

#include <Halvex/models/CNodeDataFlowProxy.h>

#include <QCoreApplication>

using namespace Host;
using namespace Plugin::Halvex;
using namespace std::chrono_literals;

namespace {

// Says what is wrong as long as the test wants it to.
class CSayingModel : public CToImageModel
{
public:
    QString validationMessage() const override { return message; }

    void setInData(CNodeDataPtr data, NodePortIndex index) override
    {
        if (!isHolding)
            CToImageModel::setInData(std::move(data), index);
    }

    QString message;
    bool isHolding = false; // What comes goes nowhere.
};

// A camera, to a filter with a sink behind it, and to another sink.
struct SFork
{
    SFork()
    {
        scene.createConnection(image, 0, camera, 0, {});
        scene.createConnection(direct, 0, camera, 0, CGrabResultConverter());
        scene.createConnection(behind, 0, image, 0, {});
        meter = std::make_unique<CFlowMeter>(scene, std::vector<const CNodeBase*>{&camera, &image, &direct, &behind});
    }

    // Goes through the graph at once: the way of a frame into it is an event of this thread.
    void send(const CNodeDataPtr& data) const
    {
        dynamic_cast<ASourceNodeDataModel&>(*camera.nodeDataModel()).getDataFlowProxy()->setData(data);
        QCoreApplication::processEvents();
    }

    SHostService host;
    CTestScene scene{host.nodes.registry(), {}, nullptr};
    CNodeBase& camera = scene.createNode(std::make_unique<CCameraSourceModel>());
    CNodeBase& image = scene.createNode(std::make_unique<CSayingModel>());
    CNodeBase& direct = scene.createNode(std::make_unique<CPngSinkModel>());
    CNodeBase& behind = scene.createNode(std::make_unique<CPngSinkModel>());
    std::unique_ptr<CFlowMeter> meter;
};

QStringList told(const std::vector<SConnectionReport>& connections)
{
    QStringList lines;
    for (const SConnectionReport& each : connections)
        lines << QStringLiteral("%1 to %2: %3, %4").arg(each.from).arg(each.to).arg(each.type).arg(each.delivered);
    return lines;
}

} // namespace

class tst_CFlowMeter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsFromItsStart();
    void dataStillArrivesConverted();
    void emptyDataDoesNotCount();
    void missingDeliveryIsNamed();
    void reportOfANode();
    void ratesHaveOneTimeBase();
    void rateOfWhatComesIfNothingLeaves();
    void fewOfManyHaveNoRate();
    void errorIsRemembered();
    void connectionThatIsGoneIsLeftOut();
};

void tst_CFlowMeter::countsFromItsStart()
{
    SFork fork;
    fork.send(frameData());
    fork.meter->start();
    QCOMPARE(fork.meter->delivered(1), quint64(0));
    fork.send(frameData());
    fork.send(frameData());
    QCOMPARE(told(fork.meter->connections()),
             QStringList({"0 to 1: VGR, 2", "0 to 2: VGR to IMG, 2", "1 to 3: IMG, 2"}));
    QCOMPARE(fork.meter->mismatch(0, 2), QString());
}

void tst_CFlowMeter::dataStillArrivesConverted()
{
    SFork fork;
    fork.meter->start();
    fork.send(frameData());
    for (CNodeBase* node : {&fork.direct, &fork.behind})
        QCOMPARE(dynamic_cast<CPngSinkModel&>(*node->nodeDataModel()).delivered(), quint64(1));
}

void tst_CFlowMeter::emptyDataDoesNotCount()
{
    SFork fork;
    fork.meter->start();
    fork.send(frameData());
    fork.send({});
    QCOMPARE(fork.meter->delivered(1), quint64(1));
    QCOMPARE(fork.meter->report(0, 0s).out.value_or(0), quint64(1));
}

void tst_CFlowMeter::missingDeliveryIsNamed()
{
    SFork fork;
    fork.meter->start();
    fork.send(frameData());
    QCOMPARE(fork.meter->mismatch(0, 2),
             QStringLiteral("the connection from '[0] Camera' to '[1] To image' carried 1 frame, not 2"));
}

void tst_CFlowMeter::reportOfANode()
{
    SFork fork;
    fork.meter->start();
    fork.send(frameData());
    const SNodeReport camera = fork.meter->report(0, 0s);
    QCOMPARE(camera.name, QStringLiteral("[0] Camera"));
    QVERIFY(camera.kind == ENodeKind::Source);
    QVERIFY(!camera.in);
    QCOMPARE(camera.out.value_or(0), quint64(1));
    QVERIFY(!camera.framesPerSecond); // of one frame
    const SNodeReport sink = fork.meter->report(3, 0s);
    QVERIFY(sink.kind == ENodeKind::Sink);
    QCOMPARE(sink.in.value_or(0), quint64(1));
    QVERIFY(!sink.out);
    QVERIFY(sink.grabToHere);
}

void tst_CFlowMeter::ratesHaveOneTimeBase()
{
    SFork fork;
    fork.meter->start();
    for (int i = 0; i < 11; ++i)
        fork.send(frameData());
    // They came at once, but the camera took ten seconds for them.
    for (std::size_t node = 0; node < 4; ++node)
        QCOMPARE(fork.meter->report(node, 10s).framesPerSecond.value_or(0), 1.0);
}

void tst_CFlowMeter::rateOfWhatComesIfNothingLeaves()
{
    SFork fork;
    CNodeBase& last = fork.scene.createNode(std::make_unique<CToImageModel>());
    fork.scene.createConnection(last, 0, fork.camera, 0, {});
    CFlowMeter meter(fork.scene, {&fork.camera, &last});
    meter.start();
    for (int i = 0; i < 11; ++i)
        fork.send(frameData());
    QCOMPARE(meter.report(1, 10s).in.value_or(0), quint64(11));
    QCOMPARE(meter.report(1, 10s).framesPerSecond.value_or(0), 1.0);
}

void tst_CFlowMeter::fewOfManyHaveNoRate()
{
    SFork fork;
    fork.meter->start();
    const auto send = [&fork](int frames, bool isHolding) {
        dynamic_cast<CSayingModel&>(*fork.image.nodeDataModel()).isHolding = isHolding;
        for (int i = 0; i < frames; ++i)
            fork.send(frameData());
    };
    send(10, false);
    send(10, true);
    QCOMPARE(fork.meter->delivered(3), quint64(10));
    QVERIFY(!fork.meter->report(3, 10s).framesPerSecond);
    QVERIFY(fork.meter->report(0, 10s).framesPerSecond);
    send(10, false);
    QVERIFY(fork.meter->report(3, 10s).framesPerSecond);
}

void tst_CFlowMeter::errorIsRemembered()
{
    SFork fork;
    fork.meter->start();
    auto& model = dynamic_cast<CSayingModel&>(*fork.image.nodeDataModel());
    QCOMPARE(fork.meter->report(1, 0s).lastError, QString());
    model.message = QStringLiteral("too dark");
    Q_EMIT model.dataInvalidated(0);
    model.message.clear();
    QCOMPARE(fork.meter->report(1, 0s).lastError, QStringLiteral("too dark"));
}

void tst_CFlowMeter::connectionThatIsGoneIsLeftOut()
{
    SFork fork;
    fork.meter->start();
    fork.scene.removeNode(fork.behind);
    QCOMPARE(told(fork.meter->connections()), QStringList({"0 to 1: VGR, 0", "0 to 2: VGR to IMG, 0"}));
}

QTEST_GUILESS_MAIN(tst_CFlowMeter)
#include "tst_CFlowMeter.moc"
