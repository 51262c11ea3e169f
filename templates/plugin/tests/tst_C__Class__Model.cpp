#include "C__Class__Model.h"

#include <Halvex/testing/CheckModel.h>

#include <QtTest>

#include <algorithm>

using namespace Plugin::Halvex;
using namespace Plugin::Halvex::Testing;

namespace {

constexpr int width = 8;
constexpr int height = 4;
constexpr int stride = width + 3;

/// All pixels are of one gray, and what lies between the rows is white.
CNodeDataPtr makeFrame(int gray, const QString& pixelFormat = QStringLiteral("Mono8"))
{
    const auto pixels = std::make_shared<std::vector<std::byte>>(std::size_t(stride) * height, std::byte(255));
    for (int y = 0; y < height; ++y)
        std::fill_n(pixels->begin() + y * stride, width, std::byte(gray));
    Veltra::SGrabResult frame;
    frame.pixels = pixels->data();
    frame.size = pixels->size();
    frame.width = width;
    frame.stride = stride;
    frame.height = height;
    frame.pixelFormat = pixelFormat;
    frame.complete = true;
    frame.owner = pixels;
    return QSharedPointer<CVeltraGrabResultData>::create(Veltra::CGrabResultPtr(std::move(frame)));
}

/// What every pixel is that the model gives out; -1 if it gives nothing, -2 if they differ.
int outputOf(C__Class__Model& model)
{
    const auto data = model.outData(0).dynamicCast<CVeltraGrabResultData>();
    if (!data || !data->grabResult())
        return -1;
    const Veltra::SGrabResult& frame = *data->grabResult();
    for (int y = 0; y < height; ++y) {
        const std::byte* const row = frame.pixels + y * frame.stride;
        if (std::any_of(row, row + width, [&frame](std::byte pixel) { return pixel != *frame.pixels; }))
            return -2;
    }
    return std::to_integer<int>(*frame.pixels);
}

} // namespace

class tst_C__Class__Model : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheRules();
    void brightens_data();
    void brightens();
    void otherFormatsGoOnWithAWarning();
    void keepsItsSetting();
};

// Whatever a graph does to a model: empty data, foreign data, documents, threads, its end.
void tst_C__Class__Model::keepsTheRules()
{
    const SReport report = checkModel([] { return std::make_unique<C__Class__Model>(); });
    if (!report.findings.empty() || !report.leftOut.empty())
        QFAIL(qPrintable(toText(report)));
}

void tst_C__Class__Model::brightens_data()
{
    QTest::addColumn<int>("brightness");
    QTest::addColumn<int>("output");
    QTest::newRow("not at all") << 0 << 100;
    QTest::newRow("brighter") << 40 << 140;
    QTest::newRow("darker") << -40 << 60;
    QTest::newRow("white") << 255 << 255;
    QTest::newRow("black") << -255 << 0;
}

void tst_C__Class__Model::brightens()
{
    QFETCH(const int, brightness);
    C__Class__Model model;
    model.setBrightness(brightness);
    const QSignalSpy announced(&model, &C__Class__Model::dataUpdated);
    model.setInData(makeFrame(100), 0);
    QCOMPARE(announced.count(), 1); // or nothing goes on to the next model
    QTEST(outputOf(model), "output");
}

void tst_C__Class__Model::otherFormatsGoOnWithAWarning()
{
    C__Class__Model model;
    model.setBrightness(40);
    model.setInData(makeFrame(100, QStringLiteral("RGB8Packed")), 0);
    QCOMPARE(outputOf(model), 100);
    QCOMPARE(model.validationState(), ENodeValidationState::Warning);
}

void tst_C__Class__Model::keepsItsSetting()
{
    C__Class__Model model;
    QSignalSpy spy(&model, &C__Class__Model::brightnessChanged);
    model.setBrightness(40);
    model.setBrightness(40);
    model.setBrightness(256);
    QCOMPARE(spy.count(), 1);

    C__Class__Model restored;
    restored.restore(model.save());
    QCOMPARE(restored.brightness(), 40);
}

QTEST_GUILESS_MAIN(tst_C__Class__Model)
#include "tst_C__Class__Model.moc"
