// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/cameras/CSharedCamera.h"

#include "TestCameras.h"
#include "host/sources/IFrameSource.h"

#include <QTest>

#include <algorithm>

using namespace Host;
using namespace std::chrono_literals;

namespace {

std::shared_ptr<CSharedCamera> openFake()
{
    SCameraOptions options;
    options.framesPerSecond = 200;
    QString error;
    auto camera = CSharedCamera::open(options, &error);
    if (!camera)
        qFatal("%s", qPrintable(error));
    return camera;
}

QString valueOf(const CSharedCamera& camera, const QString& name)
{
    const std::vector<SFeature> all = camera.features();
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const SFeature& feature) { return feature.name == name; });
    return found == all.end() ? QString() : found->plainValue;
}

bool givesFrame(IFrameSource& source)
{
    for (int i = 0; i < 50; ++i) {
        if (source.grab(100ms).status == IFrameSource::EGrab::Frame)
            return true;
    }
    return false;
}

} // namespace

class tst_CSharedCamera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusal();
    void framesAndFeaturesAtOnce();
    void settingsStayFromOneSourceToTheNext();
    void sourceKnowsTheFormatThatWasSet();
};

void tst_CSharedCamera::refusal()
{
    QString error;
    QVERIFY(!CSharedCamera::open(camera("256.1.1.1"), &error));
    QVERIFY(error.contains("256.1.1.1"));
}

void tst_CSharedCamera::framesAndFeaturesAtOnce()
{
    const auto camera = openFake();
    QString error;
    const auto source = camera->makeSource(&error);
    QVERIFY(source && source->start(&error));
    QVERIFY(givesFrame(*source));
    QCOMPARE(camera->setFeature("GainRaw", "5"), QString());
    QCOMPARE(valueOf(*camera, "GainRaw"), QString("5"));
    QVERIFY(givesFrame(*source));
    QVERIFY(!camera->setFeature("GainRaw", "a lot").isEmpty());
}

void tst_CSharedCamera::settingsStayFromOneSourceToTheNext()
{
    const auto camera = openFake();
    QCOMPARE(camera->setFeature("Width", "256"), QString());
    QString error;
    for (int i = 0; i < 2; ++i) {
        const auto source = camera->makeSource(&error);
        QVERIFY(source && source->start(&error));
        QVERIFY(givesFrame(*source));
        QCOMPARE(valueOf(*camera, "Width"), QString("256"));
    }
}

void tst_CSharedCamera::sourceKnowsTheFormatThatWasSet()
{
    const auto camera = openFake();
    QCOMPARE(camera->setFeature("PixelFormat", "Mono16"), QString());
    QString error;
    const auto source = camera->makeSource(&error);
    QCOMPARE(source->pixelFormat(), QString("Mono16"));
    QVERIFY(source->description().endsWith("512 x 512 Mono16"));
}

QTEST_GUILESS_MAIN(tst_CSharedCamera)
#include "tst_CSharedCamera.moc"
