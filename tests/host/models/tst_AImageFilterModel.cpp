// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/models/AImageFilterModel.h"

#include "host/models/CBackgroundPool.h"
#include "host/models/CBlurModel.h"
#include "host/models/CEdgesModel.h"
#include "host/models/CGrabResultData.h"
#include "host/models/CHistogramModel.h"
#include "host/models/CImageData.h"
#include "host/models/CThresholdModel.h"
#include "host/models/HistogramChart.h"
#include "host/models/ModelSettings.h"
#include "support/CMessageCatcher.h"

#include <opencv2/imgproc.hpp>

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Host;
using namespace Plugin::Halvex;

namespace {

const SFrameInfo info{7, std::chrono::steady_clock::time_point(std::chrono::seconds(9))};

// Noise with structure, the same in every run.
cv::Mat sample(int type = CV_8UC1)
{
    cv::Mat image(60, 80, type);
    cv::RNG random(4711);
    random.fill(image, cv::RNG::UNIFORM, 0, 120);
    cv::rectangle(image, cv::Rect(20, 15, 40, 30), cv::Scalar::all(220), cv::FILLED);
    return image;
}

QSharedPointer<CImageData> imageData(const cv::Mat& image = sample())
{
    return QSharedPointer<CImageData>::create(image, info);
}

// Returns when what there is to come out is out.
void send(AImageFilterModel& model, const CNodeDataPtr& data)
{
    model.setInData(data, 0);
    QCoreApplication::processEvents();
    QVERIFY(QTest::qWaitFor([&model] { return model.statistics().pending == 0; }));
}

template <typename Model>
cv::Mat filtered(const cv::Mat& image)
{
    Model model;
    send(model, imageData(image));
    const auto output = model.outData(0).template dynamicCast<CImageData>();
    return output ? output->image() : cv::Mat();
}

bool isSame(const cv::Mat& left, const cv::Mat& right)
{
    return left.size() == right.size() && left.type() == right.type() && !left.empty() &&
           cv::norm(left, right, cv::NORM_INF) == 0;
}

cv::Mat gray(const cv::Mat& image)
{
    cv::Mat result = image;
    if (image.channels() == 3)
        cv::cvtColor(image, result, cv::COLOR_BGR2GRAY);
    return result;
}

// Fails as a filter does whose work the library refuses.
class CRefusingModel : public AImageFilterModel
{
public:
    QString caption() override { return {}; }
    QString name() override { return {}; }

protected:
    Filter makeFilter() const override
    {
        return [](const cv::Mat& image) {
            cv::Mat result;
            cv::cvtColor(image, result, cv::COLOR_BGRA2GRAY);
            return result;
        };
    }
};

// Remembers whether the background pool was at work when it was.
class CPoolModel : public AImageFilterModel
{
public:
    QString caption() override { return {}; }
    QString name() override { return {}; }

    const std::shared_ptr<bool> isInBackground = std::make_shared<bool>(false);

protected:
    Filter makeFilter() const override
    {
        return [isInBackground = isInBackground](const cv::Mat& image) {
            *isInBackground = CBackgroundPool::instance().activeThreadCount() > 0;
            return image.clone();
        };
    }
};

} // namespace

class tst_AImageFilterModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void imageComesOutFiltered();
    void emptyDataClearsTheOutput();
    void otherDataIsAnError();
    void refusedImageIsAnError();
    void inputIsLeftAlone();
    void settingsTellChangesOnce();
    void removedByAChangedSetting();
    void worksInTheBackground();
    void blur();
    void threshold();
    void edges();
    void histogram();
    void deepImages();
};

void tst_AImageFilterModel::imageComesOutFiltered()
{
    CBlurModel model;
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    QSignalSpy started(&model, &CNodeDataModel::computingStarted);
    QSignalSpy finished(&model, &CNodeDataModel::computingFinished);
    send(model, imageData());
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.at(0).at(0).toInt(), 0);
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.count(), 1);
    const auto output = model.outData(0).dynamicCast<CImageData>();
    QVERIFY(output);
    QCOMPARE(output->info().frameNumber, info.frameNumber);
    QCOMPARE(output->info().grabbed, info.grabbed);
    QVERIFY(!model.outData(1));
}

void tst_AImageFilterModel::emptyDataClearsTheOutput()
{
    CBlurModel model;
    send(model, imageData());
    QVERIFY(model.outData(0));
    QSignalSpy updated(&model, &CNodeDataModel::dataUpdated);
    QSignalSpy invalidated(&model, &CNodeDataModel::dataInvalidated);
    send(model, {});
    QVERIFY(!model.outData(0));
    QCOMPARE(updated.count(), 0);
    QCOMPARE(invalidated.count(), 1);
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
}

void tst_AImageFilterModel::otherDataIsAnError()
{
    const CMessageCatcher catcher;
    CBlurModel model;
    for (const CNodeDataPtr& data :
         {CNodeDataPtr(imageData(cv::Mat())),
          CNodeDataPtr(QSharedPointer<CGrabResultData>::create(Veltra::CGrabResultPtr(), info))}) {
        send(model, imageData());
        QVERIFY(model.outData(0));
        send(model, data);
        QVERIFY(!model.outData(0));
        QCOMPARE(model.validationMessage(), QStringLiteral("this is no image"));
    }
}

void tst_AImageFilterModel::refusedImageIsAnError()
{
    const CMessageCatcher catcher;
    CRefusingModel model;
    QSignalSpy finished(&model, &CNodeDataModel::computingFinished);
    send(model, imageData());
    QVERIFY(!model.outData(0));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(model.validationState(), ENodeValidationState::Error);
    QVERIFY(!model.validationMessage().isEmpty());
    // The next input starts afresh.
    send(model, {});
    QCOMPARE(model.validationState(), ENodeValidationState::Valid);
    QVERIFY(model.validationMessage().isEmpty());
}

void tst_AImageFilterModel::inputIsLeftAlone()
{
    for (const auto& filter :
         {filtered<CBlurModel>, filtered<CThresholdModel>, filtered<CEdgesModel>, filtered<CHistogramModel>}) {
        const cv::Mat image = sample();
        const cv::Mat output = filter(image);
        QVERIFY(isSame(image, sample()));
        QVERIFY(!output.empty() && output.data != image.data);
    }
}

void tst_AImageFilterModel::settingsTellChangesOnce()
{
    CBlurModel model;
    const QSignalSpy changed(&model, &AImageFilterModel::settingChanged);
    for (const int size : {9, 9, 8, 101}) // the same again; two that make no sense
        model.setSize(size);
    QCOMPARE(model.size(), 9);
    QCOMPARE(changed.count(), 1);
    for (int i = 0; i < 2; ++i)
        model.setMethod(CBlurModel::EMethod::Box);
    QCOMPARE(changed.count(), 2);
}

void tst_AImageFilterModel::removedByAChangedSetting()
{
    CBlurModel changed;
    changed.setSize(9);
    changed.setMethod(CBlurModel::EMethod::Box);
    QPointer<CBlurModel> model(new CBlurModel);
    connect(model.data(), &AImageFilterModel::settingChanged, model.data(), [&model] { delete model; });
    model->restore(changed.save());
    QVERIFY(!model);
    model = new CBlurModel;
    connect(model.data(), &AImageFilterModel::settingChanged, model.data(), [&model] { delete model; });
    QCOMPARE(setSetting(*model, QStringLiteral("size"), QStringLiteral("9")), QStringLiteral("it is gone"));
}

void tst_AImageFilterModel::worksInTheBackground()
{
    CPoolModel model;
    send(model, imageData());
    QVERIFY(!*model.isInBackground);
    QCOMPARE(setSetting(model, "priority", "Background"), QString());
    send(model, imageData());
    QVERIFY(*model.isInBackground);

    CPoolModel restored;
    restored.restore(model.save());
    QCOMPARE(restored.priority(), AImageFilterModel::EPriority::Background);
    send(restored, imageData());
    QVERIFY(*restored.isInBackground);

    model.setPriority(AImageFilterModel::EPriority::Normal);
    QVERIFY(CBackgroundPool::instance().waitForDone(30000)); // its thread may still be on the way out
    send(model, imageData());
    QVERIFY(!*model.isInBackground);
}

void tst_AImageFilterModel::blur()
{
    for (const cv::Mat& image : {sample(CV_8UC1), sample(CV_8UC3)}) {
        cv::Mat expected;
        cv::GaussianBlur(image, expected, cv::Size(7, 7), 0);
        QVERIFY(isSame(filtered<CBlurModel>(image), expected));
    }
}

void tst_AImageFilterModel::threshold()
{
    for (const cv::Mat& image : {sample(CV_8UC1), sample(CV_8UC3)}) {
        cv::Mat expected;
        cv::threshold(gray(image), expected, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
        QVERIFY(isSame(filtered<CThresholdModel>(image), expected));
        QVERIFY(cv::countNonZero(expected) >= 40 * 30);
    }
}

void tst_AImageFilterModel::edges()
{
    for (const cv::Mat& image : {sample(CV_8UC1), sample(CV_8UC3)}) {
        cv::Mat expected;
        cv::Canny(gray(image), expected, 50, 150);
        QVERIFY(isSame(filtered<CEdgesModel>(image), expected));
        QVERIFY(cv::countNonZero(expected) > 0);
    }
}

void tst_AImageFilterModel::histogram()
{
    for (const cv::Mat& image : {sample(CV_8UC1), sample(CV_8UC3)})
        QVERIFY(isSame(filtered<CHistogramModel>(image), histogramChart(image)));
}

void tst_AImageFilterModel::deepImages()
{
    cv::Mat deep;
    sample().convertTo(deep, CV_16U, 256.0, 255.0);
    QVERIFY(isSame(filtered<CThresholdModel>(deep), filtered<CThresholdModel>(sample())));
    QVERIFY(isSame(filtered<CEdgesModel>(deep), filtered<CEdgesModel>(sample())));
    for (const auto method : {CBlurModel::EMethod::Gaussian, CBlurModel::EMethod::Box, CBlurModel::EMethod::Median}) {
        CBlurModel model;
        model.setMethod(method);
        for (const int size : {5, 7}) {
            model.setSize(size);
            send(model, imageData(deep));
            const auto output = model.outData(0).dynamicCast<CImageData>();
            QVERIFY(output);
            const bool isTooWide = method == CBlurModel::EMethod::Median && size > 5;
            QCOMPARE(output->image().type(), isTooWide ? CV_8UC1 : CV_16UC1);
        }
    }
}

QTEST_GUILESS_MAIN(tst_AImageFilterModel)
#include "tst_AImageFilterModel.moc"
