// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

// Frames: the kit has some of its own, and knows their pixels, without a word from whoever checks a model.

#include "FrameModels.h"
#include "RulesIn.h"

#include <Halvex/testing/CheckConverter.h>
#include <Halvex/testing/CheckData.h>
#include <Halvex/testing/CheckModel.h>
#include <Halvex/testing/SRuleInfo.h>

#include <QSet>
#include <QtTest>

#include <stdexcept>

using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

Q_DECLARE_METATYPE(FrameInput)

namespace {

ModelCreator creatorOf(FrameInput input)
{
    return [input] { return std::make_unique<CNumberModel>(frameModel(input)); };
}

SCheckOptions hasty()
{
    SCheckOptions options;
    options.patience = std::chrono::milliseconds(100);
    options.instances = 20;
    return options;
}

/// All that a model was given while it was checked: "Mono8 16 x 12", or "none".
QSet<QString> framesGiven(const SCheckOptions& options)
{
    static QSet<QString> seen;
    seen.clear();
    checkModel(creatorOf([](CNumberModel& model, const CNodeDataPtr& data, int index) {
                   const Veltra::CGrabResultPtr frame = frameIn(data);
                   if (frame)
                       seen << QString("%1 %2 x %3").arg(frame->pixelFormat).arg(frame->width).arg(frame->height);
                   else if (data.dynamicCast<CVeltraGrabResultData>())
                       seen << "none";
                   negate(model, data, index);
               }),
               options);
    return seen;
}

CNodeDataPtr makeOwnFrame(const SNodeDataType& type, int number)
{
    if (type.id != CVeltraGrabResultData().type().id)
        return {};
    const auto pixels = std::make_shared<std::vector<std::byte>>(8, std::byte(number % 256));
    Veltra::SGrabResult frame;
    frame.pixels = pixels->data();
    frame.size = pixels->size();
    frame.width = frame.stride = 4;
    frame.height = 2;
    frame.pixelFormat = QStringLiteral("Mono8");
    frame.owner = pixels;
    return CNodeDataPtr(new CVeltraGrabResultData(Veltra::CGrabResultPtr(std::move(frame))));
}

} // namespace

class tst_Samples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void framesOfEachKindAreGiven();
    void framesOfTheOptionsComeFirst();
    void soundModelNeedsNoOptions();
    void wrongModels_data();
    void wrongModels();
    void findingNamesTheFrame();
    void converters();
    void contentOfFramesIsKnown();
    void unknownContentIsTold();
};

void tst_Samples::framesOfEachKindAreGiven()
{
    QCOMPARE(framesGiven(hasty()), QSet<QString>({"Mono8 16 x 12", "BGR8 16 x 12", "none"}));
}

void tst_Samples::framesOfTheOptionsComeFirst()
{
    SCheckOptions options = hasty();
    options.makeData = &makeOwnFrame;
    QCOMPARE(framesGiven(options), QSet<QString>({"Mono8 4 x 2"}));

    options.makeData = {};
    options.checksum = [](const CNodeData&) { return QByteArray("always the same"); };
    const SReport report = checkModel(creatorOf(&negateInPlace), options);
    QVERIFY2(report.findings.empty(), qPrintable(toText(report)));
}

void tst_Samples::soundModelNeedsNoOptions()
{
    const SReport report = checkModel(creatorOf(&negate), hasty());
    QVERIFY2(report.findings.empty() && report.leftOut.empty(), qPrintable(toText(report)));
    QCOMPARE(std::size_t(report.kept), modelRules().size());
}

void tst_Samples::wrongModels_data()
{
    QTest::addColumn<FrameInput>("input");
    QTest::addColumn<QString>("rule");
    QTest::newRow("in place") << FrameInput(&negateInPlace) << "leaves-its-input-alone";
    QTest::newRow("colour in place") << FrameInput(&negateColourInPlace) << "leaves-its-input-alone";
    QTest::newRow("last output") << FrameInput(&changeLastOutput) << "leaves-its-output-alone";
}

void tst_Samples::wrongModels()
{
    QFETCH(FrameInput, input);
    QFETCH(QString, rule);
    const SReport report = checkModel(creatorOf(input), hasty());
    QVERIFY2(rulesIn(report).contains(rule), qPrintable(toText(report)));
}

void tst_Samples::findingNamesTheFrame()
{
    const auto grayAlone = [](CNumberModel& model, const CNodeDataPtr& data, int index) {
        const Veltra::CGrabResultPtr frame = frameIn(data);
        if (frame && frame->pixelFormat != "Mono8")
            throw std::runtime_error("colour");
        negate(model, data, index);
    };
    const SReport report = checkModel(creatorOf(grayAlone), hasty());
    QCOMPARE(rulesIn(report), QStringList{"takes-its-data"});
    QCOMPARE(report.findings.front().seen,
             QString("setInData() of a frame of 16 x 12, BGR8 on input 0 threw 'colour'"));

    const auto frameNeeded = [](CNumberModel& model, const CNodeDataPtr& data, int index) {
        if (data.dynamicCast<CVeltraGrabResultData>() && !frameIn(data))
            throw std::runtime_error("no frame");
        negate(model, data, index);
    };
    QCOMPARE(checkModel(creatorOf(frameNeeded), hasty()).findings.front().seen,
             QString("setInData() of a grab result without a frame on input 0 threw 'no frame'"));
}

void tst_Samples::converters()
{
    const SNodeDataType type = CVeltraGrabResultData().type();
    const auto sound = [](const CNodeDataPtr& data) {
        const Veltra::CGrabResultPtr frame = negated(frameIn(data));
        return frame ? CNodeDataPtr(new CVeltraGrabResultData(frame)) : CNodeDataPtr();
    };
    const SReport kept = checkConverter(sound, {type, type});
    QVERIFY2(kept.findings.empty() && kept.leftOut.empty(), qPrintable(toText(kept)));

    const auto inPlace = [](const CNodeDataPtr& data) {
        const Veltra::CGrabResultPtr frame = frameIn(data);
        if (frame)
            invertPixels(*frame);
        return frame ? data : CNodeDataPtr();
    };
    QCOMPARE(rulesIn(checkConverter(inPlace, {type, type})), QStringList{"leaves-what-it-converts-alone"});
}

void tst_Samples::contentOfFramesIsKnown()
{
    const SNodeDataType type = CVeltraGrabResultData().type();
    const SReport sound = checkData([type](int number) { return makeOwnFrame(type, number); });
    QVERIFY2(sound.findings.empty() && sound.leftOut.empty(), qPrintable(toText(sound)));

    const auto pixels = std::make_shared<std::vector<std::byte>>(8);
    const SReport shared = checkData([pixels](int number) {
        pixels->front() = std::byte(number);
        Veltra::SGrabResult frame;
        frame.pixels = pixels->data();
        frame.size = pixels->size();
        frame.owner = pixels;
        return CNodeDataPtr(new CVeltraGrabResultData(Veltra::CGrabResultPtr(std::move(frame))));
    });
    QCOMPARE(rulesIn(shared), QStringList{"content-stays-the-same"});
}

// A checksum that knows nothing of the model's type is as good as none.
void tst_Samples::unknownContentIsTold()
{
    SCheckOptions options = numberOptions();
    options.checksum = [](const CNodeData&) { return QByteArray(); };
    const SReport report = checkModel([] { return std::make_unique<CNumberModel>(); }, options);
    QStringList left;
    for (const SLeftOut& one : report.leftOut) {
        left << one.rule;
        QVERIFY2(one.reason.startsWith("contents of the type \"Test number\" cannot be compared: "),
                 qPrintable(one.reason));
    }
    QCOMPARE(left, QStringList({"leaves-its-input-alone", "leaves-its-output-alone", "restored-behaves-alike"}));
}

QTEST_GUILESS_MAIN(tst_Samples)
#include "CNumberModel.moc"
#include "tst_Samples.moc"
